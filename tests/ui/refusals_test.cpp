#include "ui/window_test.h"

namespace quorvel {
namespace {

using Refusals = WindowTest;

// "@" stands for the path.
Box TellsOf(const std::string& path, const char* title, std::string text, Icon icon) {
  const std::size_t place = text.find('@');
  if (place != std::string::npos) text.replace(place, 1, path);
  return Tells(title, text, icon);
}

TEST_F(Refusals, OfAnInputLeaveItsBoxEmpty) {
  const struct {
    const char* name;
    const char* bytes;
    const char* title;
    const char* text;
    Icon icon = Icon::information;
  } rows[] = {
      {"a.QVL.conc.txt", HARBOUR, "Invalid input", "This is an QVL concordance file.",
       Icon::exclamation},
      {"a.qvl.ndx", HARBOUR, "Invalid input", "This is an QVL index file.", Icon::exclamation},
      {"missing.txt", nullptr, "Fatal error", "File @ not found."},
      {"empty.txt", "", "Fatal error", "File @ is zero-length."},
      {"short.txt", "ship", "Fatal error", "File @\ncontains only from 1 to 4 bytes."},
      {"rtf.txt", "{\\rtf1 ship}", "Fatal error", "File @\nis an RTF file."},
      {"wide.txt", "\xFF\xFEship", "Fatal error",
       "File @\nis a Unicode file but not UTF-8 encoded."},
      {"fake.docx", "no archive at all", "Quorvel",
       "The file @\nhas a 'docx' extension but does not appear to be an MS Word 'docx' file.",
       Icon::exclamation},
  };
  OpenText("good.txt");
  for (const auto& row : rows) {
    SCOPED_TRACE(row.text);
    const std::string path =
        row.bytes == nullptr ? folder_.Path(row.name) : folder_.Write(row.name, row.bytes);
    const BoxList boxes = {TellsOf(path, row.title, row.text, row.icon)};
    Type("txbFile_0", path, boxes);
    EXPECT_EQ(Text("txbFile_0"), "");
    Drop(path, boxes);
    EXPECT_EQ(Text("txbFile_0") + Text("lblInputFileSize"), "");
  }
}

TEST_F(Refusals, OfARunWriteNothing) {
  const auto typeInput = [this](const char* name) {
    Type("txbFile_0", folder_.Write(name, HARBOUR));
  };
  const auto search = [this] {
    Search();
    Type("txbExtraKeywords", "old");
  };
  const char* const gate = "This program acts only on text files,\nWord DOCX files and HTML files.";
  const struct {
    const char* name;
    std::function<void()> prepare;
    const char* title;
    const char* text;
    Icon icon = Icon::exclamation;
  } rows[] = {
      {"no input", [this] { Click("cmdClearFile_0"); }, "Quorvel", "Input file not specified."},
      {"blanks", [this] { Type("txbFile_0", "  "); }, "Quorvel", "Input file not specified."},
      {"kind", [&] { typeInput("a.csv"); }, "List words", gate, Icon::information},
      {"kind, no file", [&] { typeInput("a.odt"), Click("chkDisable"); }, "List words (no file)",
       gate, Icon::information},
      {"kind, search", [&] { typeInput("a.log"), search(); }, "Search", gate, Icon::information},
      {"gone", [this] { std::filesystem::remove(folder_.Path("a.txt")); }, "Fatal error",
       "File @ not found.", Icon::information},
      {"concordance is input", [this] { Type("txbFile_3", folder_.Path("./a.txt")); }, "Quorvel",
       "The concordance file cannot be the same as the input file."},
      {"results are input", [&] { search(), Type("txbFile_1", folder_.Path("a.txt")); }, "Quorvel",
       "The search results file cannot be the same as the input file."},
      {"no folder", [this] { Type("txbFile_3", "/no/such/folder.txt"); }, "Error",
       "An error occurred when creating concordance file."},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const std::string path = OpenText("a.txt");
    row.prepare();
    const auto files = folder_.Count();
    Click("cmdListWords", {TellsOf(path, row.title, row.text, row.icon)});
    EXPECT_EQ(Text("txbOutput"), row.title == std::string("Error") ? HARBOUR_LISTING : "");
    EXPECT_EQ(folder_.Count(), files);
    ExpectSoon([this] { return Control("cmdListWords").hasFocus(); });
  }
}

}  // namespace
}  // namespace quorvel
