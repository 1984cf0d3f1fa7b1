#include "run/input_check.h"

#include <gtest/gtest.h>

#include "support/scripted_conversation.h"
#include "support/test_folder.h"

namespace quorvel {
namespace {

InputBytes Input(std::string_view bytes) { return {"a.txt", bytes}; }

std::string UnixText(std::size_t size) { return "a\n" + std::string(size - 2, 'b'); }

constexpr const char* TOO_BIG =
    "File too big: File @\r\nis too large to be scanned: 2 GB or more.\n";

TEST(InputCheck, SaysWhatIsWrong) {
  using enum FaultKind;
  const std::string fatal = "Fatal error: File @";
  const std::string denied = fatal + "\r\n cannot be opened (permission denied).\n";
  const struct {
    Result<InputBytes> input;
    std::string said;
    bool accepted = false, quiet = false;
  } rows[] = {
      {Input(""), fatal + " is zero-length.\n"},
      {Input("abcd"), fatal + "\r\ncontains only from 1 to 4 bytes.\n", false, true},
      {Input("\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1"),
       fatal + "\r\nis an encrypted or older word-processor file.\r\n"
               "Open it in a word processor and save it without a password as DOCX.\n"},
      {Input("\xFF\xFEtext"), fatal + "\r\nis a Unicode file but not UTF-8 encoded.\n"},
      {Input("one\rtwo\r"),
       "This is a Mac-style text file: File @\r\nhas Macintosh-type line endings (CR).\r\n\r\n"
       "You might wish to use a program such as Notepad++\r\n"
       "to convert the line endings to Windows-type (CR+LF).\n",
       true},
      {Input(UnixText(600000)), "", true, true},
      // The first line end is after the examined bytes.
      {Input(std::string(16384, 'a') + "\n" + std::string(600000, 'b')), "", true},
      {InputBytes("", "abcde"), ""},
      {Fault{missing, "a.txt", "none"}, fatal + " not found.\n"},
      {Fault{notOpened, "a.txt", "locked"}, denied},
      {Fault{tooLong, "a.txt", ""}, denied, false, true},
      {Fault{tooLong, "a.txt", ""}, TOO_BIG},
      {Fault{stopped, "a.txt", ""}, ""}};
  for (const auto& row : rows) {
    ScriptedConversation ui;
    bool macNoticeShown = false;
    const InputCheck check =
        CheckInputFile(row.input, {.quiet = row.quiet, .askToContinue = true}, macNoticeShown, ui);
    EXPECT_EQ(check.accepted, row.accepted) << row.said;
    EXPECT_EQ(macNoticeShown, row.said.find("Mac-") < row.said.size());
    EXPECT_EQ(ui.Said("a.txt"), row.said);
  }
}

TEST(InputCheck, LooksAtTheFileItself) {
  const TestFolder folder;
  const std::string path = folder.Write("long.txt", "");
  ScriptedConversation ui;
  std::filesystem::resize_file(path, 2147483646U);
  EXPECT_TRUE(CheckInputReadable(path, ui) && ui.questions.empty());
  std::filesystem::resize_file(path, 2147483647U);
  EXPECT_FALSE(CheckInputReadable(path, ui));
  EXPECT_EQ(ui.Said(path), TOO_BIG);
}

TEST(InputCheck, SettlesTheEncoding) {
  using enum EncodingChoice;
  const std::string ansi = "caf\xE9!";
  const std::string utf8 = "\xEF\xBB\xBF!!";
  const std::string seemsNot =
      "UTF-8 or ANSI file?: This file does not seem to be UTF-8 encoded.\r\n"
      "Click 'Yes' to scan it as UTF-8 encoded (not advisable)\r\n"
      "or 'No' to scan it as ANSI.\n";
  const std::tuple<std::string, EncodingChoice, Answer, bool, std::string> rows[] = {
      {ansi, confirm, Answer::ok, true, seemsNot},  // the preset answer
      {ansi, confirm, Answer::cancel, true, seemsNot},
      {ansi, confirm, Answer::no, false, seemsNot},
      {utf8, adoptDetected, Answer::ok, true, ""},
      {ansi, adoptDetected, Answer::ok, false, ""}};
  for (const auto& [bytes, choice, answer, settled, said] : rows) {
    ScriptedConversation ui;
    if (answer != Answer::ok) ui.answers = {answer};
    bool isUtf8 = bytes == ansi;
    bool macNoticeShown = false;
    EXPECT_EQ(SettleInputEncoding(Input(bytes), choice, isUtf8, macNoticeShown, ui),
              answer != Answer::cancel);
    EXPECT_EQ(isUtf8, settled) << said;
    EXPECT_EQ(ui.Said(), said);
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
  const std::string asks = "This is a Unix-style text file" + is + "500.00" + slow +
                           "\r\n\r\nDo you wish to continue processing this file?\n";
  const std::tuple<std::size_t, bool, Answer, std::string> rows[] = {
      {256000, true, Answer::no, ""},
      {256001, false, Answer::ok, "This is a Unix-style file" + is + "250.00" + slow + "\n"},
      {512000, true, Answer::yes, asks},
      {512000, true, Answer::no, asks + "This is a Unix-style text file: Operation canceled.\n"},
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
        CheckInputFile(Input(UnixText(size)), {.askToContinue = ask}, macNoticeShown, ui);
    EXPECT_EQ(check.accepted, size < 512001 && (size < 512000 || answer == Answer::yes));
    EXPECT_EQ(ui.Said("a.txt"), said);
  }
}

TEST(InputCheck, LetsThroughWhatItsReadingKnows) {
  // The path, whether it is accepted as Windows-1252, and whether it is accepted as Unicode.
  const std::tuple<const char*, bool, bool> rows[] = {
      {"a.TXT", true, true},  {"a.docx", true, true},  {"htm/a.b", true, true},
      {"a.Odt", false, true}, {"a.epub", false, true}, {"a.odt.zip", false, false},
      {"odt", false, false},  {"a.rtf", false, false},
  };
  for (const auto& [path, passes, passesInUnicode] : rows) {
    ScriptedConversation ui;
    EXPECT_EQ(CheckExtension(path, Reading::windows1252, "List", ui), passes) << path;
    EXPECT_EQ(CheckExtension(path, Reading::unicode, "List", ui), passesInUnicode) << path;
    const int refusals = (passes ? 0 : 1) + (passesInUnicode ? 0 : 1);
    EXPECT_EQ(std::ssize(ui.questions), refusals) << path;
  }
}

}  // namespace
}  // namespace quorvel
