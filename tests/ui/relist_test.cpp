#include "ui/window_test.h"

namespace quorvel {
namespace {

using Relist = WindowTest;

// The input is gone meanwhile, so what is listed can only come from memory.
TEST_F(Relist, FollowsTheOptionsWithoutReadingTheInput) {
  const BoxList written = {WritesConcordance()};
  const struct {
    const char* name;
    std::function<void()> change;
    const char* part;
  } rows[] = {
      {"order", [&] { Choose("cboWordOrder", "by frequency", written); }, "[harbour 2]\n...  old"},
      {"line breaks", [&] { Click("chkShowLineBreaks", written); }, "now. / The «old» harbour"},
      {"size", [&] { Choose("cboContextSize", " 1", written); },
       "[harbour 2]\n... old «harbour» was (x2)\n\n[old 2]\n"},
      {"frequencies", [&] { Click("chkFrequencies", written); },
       "[harbour]\n... old «harbour» was\n\n[old]\n"},
      {"no context", [&] { Choose("cboContextSize", " 0", written); }, "harbour\nold\nsilent\n"},
  };
  const std::string input = OpenText("a.txt");
  List();
  ASSERT_TRUE(std::filesystem::remove(input));
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    phases_.clear();
    row.change();
    EXPECT_NE(Text("txbOutput").find(row.part), std::string::npos) << Text("txbOutput");
    EXPECT_EQ(phases_, "Creating concordance, ");
    ExpectSoon([this] { return Control("cmdListWords").hasFocus(); });
  }
}

TEST_F(Relist, HasNothingToListBeforeARun) {
  const std::string input = OpenText("a.txt");
  Click("chkFrequencies");
  EXPECT_EQ(Text("txbOutput"), "");
  List();
  const std::string first = folder_.Read("a.qvl.conc.txt");
  // Nor after another input was chosen: its names are not those of the words at hand.
  Drop(folder_.Write("b.txt", "ship ahoy\r\n"));
  Click("chkFrequencies");
  EXPECT_EQ(folder_.Read("b.qvl.conc.txt"), "");
  EXPECT_EQ(folder_.Read("a.qvl.conc.txt"), first);
  // Nor in the other mode, whose words are others.
  Drop(input);
  List();
  const std::string listing = Text("txbOutput");
  Search();
  Click("chkFrequencies");
  EXPECT_EQ(Text("txbOutput"), listing);
}

TEST_F(Relist, AllowsLineBreaksWhereTheInputHasThem) {
  const struct {
    const char* name;
    const char* size;
    bool allowed;
  } rows[] = {{"a.txt", " 0", false},
              {"a.txt", " 1", true},
              {"a.HTML", " 1", false},
              {"a.xml", " 1", false}};
  OpenText("first.txt");
  for (const auto& [name, size, allowed] : rows) {
    Drop(folder_.Write(name, "<p>ship ahoy</p>\r\n"));
    Choose("cboContextSize", size);
    EXPECT_EQ(Control("chkShowLineBreaks").isEnabled(), allowed) << name << size;
  }
  const std::string document = folder_.Path("a.docx");
  std::filesystem::copy_file(QUORVEL_TEST_DATA "/docx/harbour_log.docx", document);
  Drop(document, {LoadsStopWords(LANGUAGES.back())});
  EXPECT_FALSE(Control("chkShowLineBreaks").isEnabled());
}

}  // namespace
}  // namespace quorvel
