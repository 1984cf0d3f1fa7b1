#include "input/input_file.h"

#include <gtest/gtest.h>

#include "support/scripted_interface.h"
#include "support/test_folder.h"

namespace quorvel {
namespace {

std::string UnixText(std::size_t size) { return "a\n" + std::string(size - 2, 'b'); }

struct KindRow {
  const char* name;
  const char* file;
  std::string bytes;
  FileKind kind;
  bool isUtf8 = false;
  std::string message = {};  // behind "File " and the path
  std::string title = "Fatal error";
};

TEST(InputFile, TellsKindsAndSaysWhatIsWrong) {
  using namespace std::string_literals;
  const KindRow rows[] = {
      {"empty", "a.txt", "", FileKind::empty, false, " is zero-length."},
      {"four bytes", "a.txt", "abcd", FileKind::oneToFourBytes, false,
       "\r\ncontains only from 1 to 4 bytes."},
      {"five bytes", "a.txt", "abcde", FileKind::windowsText},
      {"rtf", "a.txt", "{\\rtf1}", FileKind::rtf, false, "\r\nis an RTF file."},
      {"utf-16 le", "a.txt",
       "\xFF\xFE"
       "abcd",
       FileKind::otherUnicode, false, "\r\nis a Unicode file but not UTF-8 encoded."},
      {"utf-16 be", "a.txt",
       "\xFE\xFF"
       "abcd",
       FileKind::otherUnicode, false, "\r\nis a Unicode file but not UTF-8 encoded."},
      {"utf-32 be", "a.txt",
       "\0\0\xFE\xFF"
       "abcd"s,
       FileKind::otherUnicode, false, "\r\nis a Unicode file but not UTF-8 encoded."},
      {"utf-8 mark, Unix line ends unseen", "a.txt",
       "\xEF\xBB\xBF"
       "a\nb\n",
       FileKind::windowsText, true},
      {"xml", "a.XML", "<?xml version", FileKind::windowsText, true},
      {"xml as text", "a.txt", "<?xml version", FileKind::windowsText},
      {"xml, utf-16", "a.xml", "<\0?\0x\0"s, FileKind::otherUnicode, false,
       "\r\nis a Unicode file but not UTF-8 encoded."},
      {"charset", "a.htm", "<META CHARSET=utf-8>", FileKind::windowsText, true},
      {"quoted charset", "a.htm", "<meta charset=\"Utf-8\">", FileKind::windowsText, true},
      {"half-quoted charset", "a.htm", "<meta charset=\"utf-8>", FileKind::windowsText},
      {"other charset", "a.htm", "<meta charset=latin-1>", FileKind::windowsText},
      {"typographic bytes", "a.txt", "say \xE2\x80\x9Chi\xE2\x80\x9D", FileKind::windowsText, true},
      {"accents alone show nothing", "a.txt", "caf\xC3\xA9 au lait", FileKind::windowsText},
      {"no text extension", "a.dat", "say \xE2\x80\x9Chi", FileKind::windowsText},
      {"Unix", "a.txt", "one\ntwo\n", FileKind::unixText},
      {"return behind the examined part", "a.txt", "a\n" + std::string(16382, 'b') + "\r\n",
       FileKind::unixText},
      {"line end behind the examined part", "a.txt", std::string(16384, 'b') + "\n",
       FileKind::windowsText},
      {"Mac", "a.txt", "one\rtwo\r", FileKind::macText, false,
       "\r\nhas Macintosh-type line endings (CR).\r\n\r\nYou might wish to use a program such as "
       "Notepad++\r\nto convert the line endings to Windows-type (CR+LF).",
       "This is a Mac-style text file"}};
  for (const KindRow& row : rows) {
    SCOPED_TRACE(row.name);
    const TestFolder folder;
    const std::string path = folder.Write(row.file, row.bytes);
    ScriptedInterface ui;
    bool macNoticeShown = false;
    const InputCheck check = CheckInputFile(path, {}, macNoticeShown, ui);
    EXPECT_EQ(check.kind, row.kind);
    EXPECT_EQ(check.isUtf8, row.isUtf8);
    EXPECT_EQ(check.accepted, row.message.empty() || row.kind == FileKind::macText);
    ASSERT_EQ(ui.questions.size(), row.message.empty() ? 0U : 1U);
    if (row.message.empty()) continue;
    EXPECT_EQ(ui.questions[0].text, "File " + path + row.message);
    EXPECT_EQ(ui.questions[0].title, row.title);
    EXPECT_EQ(ui.questions[0].icon, Icon::information);
    // Once more: the notice on Macintosh line ends is given once, a fault each time.
    (void)CheckInputFile(path, {}, macNoticeShown, ui);
    EXPECT_EQ(ui.questions.size(), row.kind == FileKind::macText ? 1U : 2U);
  }
}

TEST(InputFile, SaysNothingOfAnEmptyNameAndNamesAMissingFile) {
  ScriptedInterface ui;
  bool macNoticeShown = false;
  EXPECT_EQ(CheckInputFile("", {}, macNoticeShown, ui).kind, FileKind::noPath);
  EXPECT_TRUE(ui.questions.empty());
  EXPECT_EQ(CheckInputFile("/no/such.txt", {}, macNoticeShown, ui).kind, FileKind::missing);
  ASSERT_EQ(ui.questions.size(), 1U);
  EXPECT_EQ(ui.questions[0].text, "File /no/such.txt not found.");
}

struct UnixRow {
  std::size_t size;
  bool ask;
  Answer answer;
  bool accepted;
  std::string title;
  std::string sizeText = {};
};

TEST(InputFile, WarnsOfLargeUnixFilesAndRefusesTheLargest) {
  const std::string warned =
      "\r\nso processing of this file might be rather slow.\r\n\r\nIt is "
      "advisable to use a program such as Notepad++\r\nto convert the line "
      "endings to Windows-type (CR+LF).";
  const std::string refused =
      "\r\nso processing of this file would take a long time.\r\n\r\nYou "
      "can process this file by first using a program such as Notepad++"
      "\r\nto convert the line endings to Windows-type (CR+LF).";
  const UnixRow rows[] = {
      {256000, true, Answer::no, true, ""},
      {256001, false, Answer::ok, true, "This is a Unix-style file", "250.00 Kb"},
      {256001, true, Answer::yes, true, "This is a Unix-style text file", "250.00 Kb"},
      {512000, true, Answer::no, false, "This is a Unix-style text file", "500.00 Kb"},
      {512001, true, Answer::yes, false, "Cannot process this file", "500.00 Kb"}};
  const TestFolder folder;
  for (const UnixRow& row : rows) {
    SCOPED_TRACE(std::to_string(row.size) + (row.ask ? " asked" : ""));
    const std::string path = folder.Write("a.txt", UnixText(row.size));
    ScriptedInterface ui;
    ui.answers = {row.answer};
    bool macNoticeShown = false;
    const InputCheck check = CheckInputFile(path, {false, row.ask}, macNoticeShown, ui);
    EXPECT_EQ(check.accepted, row.accepted);
    EXPECT_EQ(check.kind, row.accepted ? FileKind::unixText : FileKind::notText);
    if (row.title.empty()) {
      EXPECT_TRUE(ui.questions.empty());
      continue;
    }
    const bool asks = row.ask && row.size <= 512000;
    EXPECT_EQ(ui.questions.at(0).title, row.title);
    EXPECT_EQ(ui.questions[0].text,
              "File " + path +
                  "\r\nhas Unix-type line endings (LF).\r\n\r\nThe size of this file is " +
                  row.sizeText + (row.size > 512000 ? refused : warned) +
                  (asks ? "\r\n\r\nDo you wish to continue processing this file?" : ""));
    EXPECT_EQ(ui.questions[0].icon, asks ? Icon::none : Icon::information);
    EXPECT_EQ(ui.questions[0].preset, asks ? Answer::no : Answer::ok);
    const bool canceled = asks && row.answer == Answer::no;
    ASSERT_EQ(ui.questions.size(), canceled ? 2U : 1U);
    EXPECT_TRUE(!canceled || ui.questions[1].text == "Operation canceled.");
  }
}

}  // namespace
}  // namespace quorvel
