#include "input/input_file.h"

#include <gtest/gtest.h>

#include "support/platform.h"
#include "support/scripted_interface.h"
#include "support/test_folder.h"

namespace quorvel {
namespace {

std::string UnixText(std::size_t size) { return "a\n" + std::string(size - 2, 'b'); }

TEST(InputFile, TellsKinds) {
  using namespace std::string_literals;
  using enum FileKind;
  const struct {
    const char* name;
    const char* file;
    std::string bytes;
    FileKind kind;
    bool isUtf8 = false;
  } rows[] = {
      {"five bytes", "a.txt", "abcde", windowsText},
      {"utf-16 be", "a.txt", "\xFE\xFFwxyz", otherUnicode},
      {"utf-32 be", "a.txt", "\0\0\xFE\xFFwxyz"s, otherUnicode},
      {"utf-8 mark, Unix line ends unseen", "a.txt", "\xEF\xBB\xBFx\ny\n", windowsText, true},
      {"xml", "a.XML", "<?xml version", windowsText, true},
      {"xml as text", "a.txt", "<?xml version", windowsText},
      {"xml, utf-16", "a.xml", "<\0?\0x\0"s, otherUnicode},
      {"charset", "a.htm", "<META CHARSET=\"utf-8\">", windowsText, true},
      // It is read in pieces of 65536 bytes.
      {"quote across pieces", "a.txt", std::string(65535, 'b') + "\xE2\x80", windowsText, true},
      {"charset across pieces", "a.txt", std::string(65529, 'b') + "charset=utf-8", windowsText,
       true},
      {"no text extension", "a.dat", "say \xE2\x80\x9Chi", windowsText},
      {"return behind the examined part", "a.txt", UnixText(16384) + "\r\n", unixText},
      {"line end behind it", "a.txt", std::string(16384, 'b') + "\n", windowsText}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const TestFolder folder;
    ScriptedInterface ui;
    bool macNoticeShown = false;
    const std::string path = folder.Write(row.file, row.bytes);
    const InputCheck check = CheckInputFile(path, {}, macNoticeShown, ui);
    EXPECT_EQ(check.kind, row.kind);
    EXPECT_EQ(check.isUtf8, row.isUtf8);
    EXPECT_EQ(check.accepted, row.kind != otherUnicode);
    EXPECT_EQ(check.accepted, ui.questions.empty());
  }
}

TEST(InputFile, SaysWhatIsWrongAndTheNoticeOnMacintoshLineEndsOnce) {
  const TestFolder folder;
  const std::string path = folder.Write("a.txt", "one\rtwo\r");
  ScriptedInterface ui;
  bool macNoticeShown = false;
  EXPECT_EQ(CheckInputFile("", {}, macNoticeShown, ui).kind, FileKind::noPath);
  EXPECT_TRUE(CheckInputFile(path, {}, macNoticeShown, ui).accepted);
  EXPECT_EQ(CheckInputFile(path, {}, macNoticeShown, ui).kind, FileKind::macText);
  // Nothing but an ordinary file is opened: a pipe might never give a byte.
  EXPECT_EQ(CheckInputFile(NULL_DEVICE, {}, macNoticeShown, ui).kind, FileKind::unreadable);
  EXPECT_EQ(ui.Said(path),
            "This is a Mac-style text file: File @\r\n"
            "has Macintosh-type line endings (CR).\r\n\r\n"
            "You might wish to use a program such as Notepad++\r\n"
            "to convert the line endings to Windows-type (CR+LF).\n"
            "Fatal error: File " +
                std::string(NULL_DEVICE) + "\r\n cannot be opened (permission denied).\n");
}

TEST(InputFile, WarnsOfLargeUnixFilesAndRefusesTheLargest) {
  const std::string is =
      ": File @\r\nhas Unix-type line endings (LF).\r\n\r\nThe size of this file is ";
  const std::string slow =
      " Kb\r\nso processing of this file might be rather slow.\r\n\r\n"
      "It is advisable to use a program such as Notepad++\r\n"
      "to convert the line endings to Windows-type (CR+LF).";
  const std::string question = "\r\n\r\nDo you wish to continue processing this file?\n";
  const std::string refused =
      "Cannot process this file" + is +
      "500.00 Kb\r\n"
      "so processing of this file would take a long time.\r\n\r\n"
      "You can process this file by first using a program such as Notepad++\r\n"
      "to convert the line endings to Windows-type (CR+LF).\n";
  const std::string warned = "This is a Unix-style file" + is + "250.00" + slow + "\n";
  const std::string asks = "This is a Unix-style text file" + is;
  const std::string larger =
      asks + "500.00" + slow + question + "This is a Unix-style text file: Operation canceled.\n";
  const struct {
    std::size_t size;
    bool ask;
    Answer answer;
    std::string said;
  } rows[] = {{256000, true, Answer::no, ""},
              {256001, false, Answer::ok, warned},
              {256001, true, Answer::yes, asks + "250.00" + slow + question},
              {512000, true, Answer::no, larger},
              {512001, true, Answer::yes, refused}};
  const TestFolder folder;
  for (const auto& [size, ask, answer, said] : rows) {
    const std::string path = folder.Write("a.txt", UnixText(size));
    ScriptedInterface ui;
    ui.answers = {answer};
    bool macNoticeShown = false;
    const InputCheck check = CheckInputFile(path, {false, ask}, macNoticeShown, ui);
    EXPECT_EQ(check.accepted, size < 512000);
    EXPECT_EQ(check.kind, check.accepted ? FileKind::unixText : FileKind::notText);
    EXPECT_EQ(ui.Said(path), said);
    if (said.empty()) continue;
    const bool isQuestion = said.starts_with(asks);
    EXPECT_EQ(ui.questions.at(0).icon, isQuestion ? Icon::none : Icon::information);
    EXPECT_EQ(ui.questions.at(0).preset, isQuestion ? Answer::no : Answer::ok);
  }
}

}  // namespace
}  // namespace quorvel
