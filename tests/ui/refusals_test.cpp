#include "ui/window_test.h"

namespace quorvel {
namespace {

using Refusals = WindowTest;

TEST_F(Refusals, OfAnInputLeaveItsBoxEmpty) {
  const std::string listing = folder_.Write("a.QVL.conc.txt", HARBOUR);
  const std::string index = folder_.Write("a.qvl.ndx", HARBOUR);
  const std::string missing = folder_.Path("missing.txt");
  const std::string fake = folder_.Write("fake.docx", "no archive at all");
  const std::pair<std::string, Box> rows[] = {
      {listing, Tells("Invalid input", "This is an QVL concordance file.")},
      {index, Tells("Invalid input", "This is an QVL index file.")},
      {missing, Tells("Fatal error", "File " + missing + " not found.", Icon::information)},
      {fake, Tells("Quorvel", "The file " + fake +
                                  "\nhas a 'docx' extension but does not appear to be an "
                                  "MS Word 'docx' file.")},
  };
  const std::string good = OpenText("good.txt");
  for (const auto& [path, refusal] : rows) {
    SCOPED_TRACE(path);
    Drop(good);
    List();
    Type("txbFile_0", path, {refusal});
    EXPECT_EQ(Text("txbFile_0") + Text("lblInputFileSize") + Counts(), "");
  }
}

TEST_F(Refusals, AndNewInputsLeaveNothingOfTheLastListing) {
  const std::string good = OpenText("good.txt");
  const struct {
    const char* name;
    std::function<void()> act;
    const char* output;
  } rows[] = {
      {"another input", [&] { Drop(folder_.Write("b.txt", HARBOUR)); }, "Checking file ...\n"},
      {"the same input", [&] { Type("txbFile_0", good); }, "Checking file ...\n"},
      {"none", [&] { Click("cmdClearFile_0"); }, ""},
      {"a run without one",
       [&] {
         ASSERT_TRUE(std::filesystem::remove(good));
         Click("cmdListWords",
               {Tells("Fatal error", "File " + good + " not found.", Icon::information)});
       },
       ""},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    Drop(good);
    List();
    row.act();
    EXPECT_EQ(Text("txbOutput") + Counts(), row.output);
  }
}

}  // namespace
}  // namespace quorvel
