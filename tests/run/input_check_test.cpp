#include "run/input_check.h"

#include <gtest/gtest.h>

#include "support/platform.h"
#include "support/scripted_conversation.h"
#include "support/test_folder.h"

namespace quorvel {
namespace {

InputBytes Input(std::string_view bytes) { return {"a.txt", bytes}; }

std::string UnixText(std::size_t size) { return "a\n" + std::string(size - 2, 'b'); }

TEST(InputCheck, SaysWhatIsWrong) {
  using enum FileKind;
  const std::string fatal = "Fatal error: File @";
  const std::string denied = fatal + "\r\n cannot be opened (permission denied).\n";
  const std::string tooLong = "File too big: File @\r\nis too large to be scanned: 2 GB or more.\n";
  const struct {
    Result<InputBytes> input;
    FileKind kind;
    std::string said;
    bool quiet = false;
  } rows[] = {
      {Input("abcde"), windowsText, ""},
      {Input(""), empty, fatal + " is zero-length.\n"},
      {Input("abcd"), oneToFourBytes, fatal + "\r\ncontains only from 1 to 4 bytes.\n", true},
      {Input("{\\rtf1"), rtf, fatal + "\r\nis an RTF file.\n"},
      {Input("\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1"), compound,
       fatal + "\r\nis an encrypted or older word-processor file.\r\n"
               "Open it in a word processor and save it without a password as DOCX.\n"},
      {Input("\xFF\xFEtext"), otherUnicode,
       fatal + "\r\nis a Unicode file but not UTF-8 encoded.\n"},
      {Input(UnixText(600000)), unixText, "", true},
      {Input("one\rtwo"), macText, "", true},
      // The first line end just within what is looked at, and behind it.
      {Input(std::string(16383, 'a') + "\n"), unixText, ""},
      {Input(std::string(16384, 'a') + "\n"), windowsText, ""},
      {InputBytes("", "abcde"), noPath, ""},
      {Fault{FaultKind::missing, "", "none"}, noPath, ""},
      {Fault{FaultKind::missing, "a.txt", "none"}, missing, fatal + " not found.\n"},
      {Fault{FaultKind::notOpened, "a.txt", "locked"}, unreadable, denied},
      {Fault{FaultKind::notAFile, "a.txt", ""}, unreadable, denied},
      {Fault{FaultKind::tooLong, "a.txt", ""}, unreadable, tooLong},
      {Fault{FaultKind::tooLong, "a.txt", ""}, unreadable, denied, true},
      {Fault{FaultKind::stopped, "a.txt", ""}, unreadable, ""}};
  for (const auto& row : rows) {
    ScriptedConversation ui;
    bool macNoticeShown = false;
    const std::string path = row.kind == noPath ? "" : "a.txt";
    const InputCheck check = CheckInputFile(path, row.input, {row.quiet, true}, macNoticeShown, ui);
    EXPECT_EQ(check.kind, row.kind) << row.said;
    EXPECT_EQ(check.accepted, row.input && row.kind != noPath && row.said.empty()) << row.said;
    EXPECT_EQ(ui.Said(path), row.said);
  }
}

TEST(InputCheck, GivesTheNoticeOnMacintoshLineEndsOnce) {
  ScriptedConversation ui;
  bool macNoticeShown = false;
  for (int i = 0; i < 2; ++i) {
    EXPECT_TRUE(CheckInputFile("a.txt", Input("one\rtwo\r"), {}, macNoticeShown, ui).accepted);
  }
  EXPECT_EQ(ui.Said("a.txt"),
            "This is a Mac-style text file: File @\r\n"
            "has Macintosh-type line endings (CR).\r\n\r\n"
            "You might wish to use a program such as Notepad++\r\n"
            "to convert the line endings to Windows-type (CR+LF).\n");
}

TEST(InputCheck, LooksAtTheFileItself) {
  const TestFolder folder;
  const std::string fatal = "Fatal error: File @";
  const std::pair<std::string, std::string> rows[] = {
      {folder.Write("longest", ""), ""},
      {folder.Write("long", ""),
       "File too big: File @\r\nis too large to be scanned: 2 GB or more.\n"},
      {folder.Path("none"), fatal + " not found.\n"},
      {folder.Path(""), fatal + " not found.\n"},
      {NULL_DEVICE, fatal + "\r\nis a device or a pipe, not a file.\n"}};
  std::filesystem::resize_file(folder.Path("longest"), 2147483646);
  std::filesystem::resize_file(folder.Path("long"), 2147483647);
  for (const auto& [path, said] : rows) {
    ScriptedConversation ui;
    EXPECT_EQ(CheckInputReadable(path, ui), said.empty()) << path;
    EXPECT_EQ(ui.Said(path), said) << path;
  }
}

TEST(InputCheck, SettlesTheEncoding) {
  using enum EncodingChoice;
  const std::string ansi = "caf\xE9!";
  const std::string utf8 = "\xEF\xBB\xBF!!";
  const std::string seems =
      "UTF-8 or ANSI file?: This file seems to be UTF-8 encoded.\r\n"
      "Click 'Yes' to scan it as UTF-8 encoded or 'No' to scan it as ANSI.\n";
  const std::string seemsNot =
      "UTF-8 or ANSI file?: This file does not seem to be UTF-8 encoded.\r\n"
      "Click 'Yes' to scan it as UTF-8 encoded (not advisable)\r\n"
      "or 'No' to scan it as ANSI.\n";
  const struct {
    std::string bytes;
    bool setting;
    EncodingChoice choice;
    std::optional<Answer> answer;  // else Enter
    bool settled;
    std::string said;
  } rows[] = {{utf8, true, confirm, {}, true, ""},
              {utf8, false, confirm, {}, false, seems},
              {utf8, false, confirm, Answer::yes, true, seems},
              {utf8, false, confirm, Answer::cancel, false, seems},
              {ansi, true, confirm, {}, true, seemsNot},
              {ansi, true, confirm, Answer::no, false, seemsNot},
              {utf8, false, adoptDetected, {}, true, ""},
              {ansi, true, adoptDetected, {}, false, ""}};
  for (const auto& row : rows) {
    SCOPED_TRACE(&row - rows);
    ScriptedConversation ui;
    if (row.answer) ui.answers = {*row.answer};
    bool isUtf8 = row.setting;
    bool macNoticeShown = false;
    EXPECT_EQ(SettleInputEncoding(Input(row.bytes), row.choice, isUtf8, macNoticeShown, ui),
              row.answer != Answer::cancel);
    EXPECT_EQ(isUtf8, row.settled);
    EXPECT_EQ(ui.Said(), row.said);
  }
}

TEST(InputCheck, WarnsOfLargeUnixFilesAndRefusesTheLargest) {
  const std::string is =
      ": File @\r\nhas Unix-type line endings (LF).\r\n\r\nThe size of this file is ";
  const std::string advice =
      " a program such as Notepad++\r\nto convert the line endings to Windows-type (CR+LF).";
  const std::string slow =
      " Kb\r\nso processing of this file might be rather slow.\r\n\r\nIt is advisable to use" +
      advice;
  const std::string asks = "This is a Unix-style text file" + is;
  const std::string question = slow + "\r\n\r\nDo you wish to continue processing this file?\n";
  const struct {
    std::size_t size;
    bool ask;
    Answer answer;
    std::string said;
  } rows[] = {
      {256000, true, Answer::no, ""},
      {256001, false, Answer::ok, "This is a Unix-style file" + is + "250.00" + slow + "\n"},
      {256001, true, Answer::yes, asks + "250.00" + question},
      {512000, true, Answer::no,
       asks + "500.00" + question + "This is a Unix-style text file: Operation canceled.\n"},
      {512001, true, Answer::yes,
       "Cannot process this file" + is +
           "500.00 Kb\r\nso processing of this file would take a long time.\r\n\r\n"
           "You can process this file by first using" +
           advice + "\n"}};
  for (const auto& [size, ask, answer, said] : rows) {
    ScriptedConversation ui;
    ui.answers = {answer};
    bool macNoticeShown = false;
    const InputCheck check =
        CheckInputFile("a.txt", Input(UnixText(size)), {false, ask}, macNoticeShown, ui);
    EXPECT_EQ(check.kind, size < 512000 ? FileKind::unixText : FileKind::notText);
    EXPECT_EQ(check.accepted, size < 512000);
    EXPECT_EQ(ui.Said("a.txt"), said);
  }
}

}  // namespace
}  // namespace quorvel
