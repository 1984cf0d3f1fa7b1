#include "run/input_check.h"

#include <gtest/gtest.h>

#include "run/fault_texts.h"
#include "support/platform.h"
#include "support/scripted_conversation.h"
#include "support/test_folder.h"

namespace quorvel {
namespace {

std::string UnixText(std::size_t size) { return "a\n" + std::string(size - 2, 'b'); }

TEST(InputCheck, SaysWhatIsWrong) {
  const std::string fatal = "Fatal error: File @";
  const std::string denied = fatal + "\r\n cannot be opened (permission denied).\n";
  const struct {
    const char* name;
    Result<InputBytes> input;
    FileKind kind;
    std::string said;
    bool quiet = false;
  } rows[] = {
      {"text", InputBytes("in.txt", "abcde"), FileKind::windowsText, ""},
      {"nothing", InputBytes("in.txt", ""), FileKind::empty, fatal + " is zero-length.\n"},
      {"little, quietly", InputBytes("in.txt", "abcd"), FileKind::oneToFourBytes,
       fatal + "\r\ncontains only from 1 to 4 bytes.\n", true},
      {"rtf", InputBytes("in.txt", "{\\rtf1"), FileKind::rtf, fatal + "\r\nis an RTF file.\n"},
      {"a compound file", InputBytes("in.txt", "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1"),
       FileKind::compound,
       fatal + "\r\nis an encrypted or older word-processor file.\r\n"
               "Open it in a word processor and save it without a password as DOCX.\n"},
      {"utf-16", InputBytes("in.txt", "\xFF\xFEtext"), FileKind::otherUnicode,
       fatal + "\r\nis a Unicode file but not UTF-8 encoded.\n"},
      {"long Unix text, quietly", InputBytes("in.txt", UnixText(600000)), FileKind::unixText, "",
       true},
      {"no path", Fault{FaultKind::missing, "", "none"}, FileKind::noPath, ""},
      {"missing", Fault{FaultKind::missing, "in.txt", "none"}, FileKind::missing,
       fatal + " not found.\n"},
      {"locked", Fault{FaultKind::notOpened, "in.txt", "locked"}, FileKind::unreadable, denied},
      {"pipe", Fault{FaultKind::notAFile, "in.txt", ""}, FileKind::unreadable, denied},
      {"too long", Fault{FaultKind::tooLong, "in.txt", ""}, FileKind::unreadable,
       "File too big: File @\r\nis too large to be scanned: 2 GB or more.\n"},
      {"a list that is too long", Fault{FaultKind::tooLong, "in.txt", ""}, FileKind::unreadable,
       denied, true},
      {"stopped", Fault{FaultKind::stopped, "in.txt", ""}, FileKind::unreadable, ""}};
  for (const auto& row : rows) {
    ScriptedConversation ui;
    bool macNoticeShown = false;
    const std::string path = row.kind == FileKind::noPath ? "" : "in.txt";
    const InputCheck check = CheckInputFile(path, row.input, {row.quiet, true}, macNoticeShown, ui);
    EXPECT_EQ(check.kind, row.kind) << row.name;
    EXPECT_EQ(check.accepted, row.input && row.said.empty()) << row.name;
    EXPECT_EQ(ui.Said(path), row.said) << row.name;
  }
}

TEST(InputCheck, GivesTheNoticeOnMacintoshLineEndsOnce) {
  const InputBytes input("a.txt", "one\rtwo\r");
  ScriptedConversation ui;
  bool macNoticeShown = false;
  for (int i = 0; i < 2; ++i) {
    EXPECT_EQ(CheckInputFile("a.txt", input, {}, macNoticeShown, ui).kind, FileKind::macText);
  }
  EXPECT_EQ(ui.Said("a.txt"),
            "This is a Mac-style text file: File @\r\n"
            "has Macintosh-type line endings (CR).\r\n\r\n"
            "You might wish to use a program such as Notepad++\r\n"
            "to convert the line endings to Windows-type (CR+LF).\n");
}

TEST(InputCheck, LooksAtTheFileItself) {
  const TestFolder folder;
  const std::string tooLong = folder.Write("long.txt", "");
  std::filesystem::resize_file(PathOfBytes(tooLong), 2147483647);
  const std::string fatal = "Fatal error: File @";
  const std::pair<std::string, std::string> rows[] = {
      {folder.Write("a.txt", ""), ""},
      {folder.Path("none"), fatal + " not found.\n"},
      {folder.Path(""), fatal + " not found.\n"},
      {NULL_DEVICE, fatal + "\r\nis a device or a pipe, not a file.\n"},
      {tooLong, "File too big: File @\r\nis too large to be scanned: 2 GB or more.\n"}};
  for (const auto& [path, said] : rows) {
    ScriptedConversation ui;
    EXPECT_EQ(CheckInputReadable(path, ui), said.empty()) << path;
    EXPECT_EQ(ui.Said(path), said) << path;
  }
}

TEST(InputCheck, SettlesTheEncoding) {
  using enum EncodingChoice;
  const char* const ansi = "caf\xE9!";
  const char* const utf8 = "\xEF\xBB\xBF!!";
  const std::string title = "UTF-8 or ANSI file?: ";
  const std::string seems = title +
                            "This file seems to be UTF-8 encoded.\r\n"
                            "Click 'Yes' to scan it as UTF-8 encoded or 'No' to scan it "
                            "as ANSI.\n";
  const std::string seemsNot = title +
                               "This file does not seem to be UTF-8 encoded.\r\n"
                               "Click 'Yes' to scan it as UTF-8 encoded (not advisable)"
                               "\r\nor 'No' to scan it as ANSI.\n";
  const struct {
    const char* name;
    const char* bytes;
    bool setting;
    EncodingChoice choice;
    std::optional<Answer> answer;  // else Enter
    bool goesOn;
    bool settled;
    std::string said;
  } rows[] = {{"as set", utf8, true, confirm, {}, true, true, ""},
              {"UTF-8, Enter", utf8, false, confirm, {}, true, false, seems},
              {"UTF-8, yes", utf8, false, confirm, Answer::yes, true, true, seems},
              {"UTF-8, cancel", utf8, false, confirm, Answer::cancel, false, false, seems},
              {"ANSI, Enter", ansi, true, confirm, {}, true, true, seemsNot},
              {"ANSI, no", ansi, true, confirm, Answer::no, true, false, seemsNot},
              {"UTF-8, adopted", utf8, false, adoptDetected, {}, true, true, ""},
              {"ANSI, adopted", ansi, true, adoptDetected, {}, true, false, ""}};
  for (const auto& row : rows) {
    ScriptedConversation ui;
    if (row.answer) ui.answers = {*row.answer};
    bool isUtf8 = row.setting;
    bool macNoticeShown = false;
    const InputBytes input("a.txt", row.bytes);
    EXPECT_EQ(SettleInputEncoding(input, row.choice, isUtf8, macNoticeShown, ui), row.goesOn)
        << row.name;
    EXPECT_EQ(isUtf8, row.settled) << row.name;
    EXPECT_EQ(ui.Said(), row.said) << row.name;
  }
}

TEST(FaultTexts, NameWhatFailedAndWhere) {
  const struct {
    Fault fault;
    std::string said;
  } rows[] = {
      {{FaultKind::notRead, "a.txt", "It broke"},
       "Read error: It broke\r\nwhen reading input file."},
      {{FaultKind::notRead, "a.Docx", "It broke"}, "Read error: File a.Docx\r\ncannot be read."},
      {{FaultKind::textTooLong, "a.txt", ""},
       "Read error: The text is longer than 2 GB.\r\nwhen reading input file."},
      {{FaultKind::fileNotRemoved, "@/@", ""}, "Error: Error when attempting to delete @/@"}};
  for (const auto& [fault, said] : rows) {
    const Message message = MessageOf(fault);
    EXPECT_EQ(message.title + ": " + message.text, said);
  }
}

TEST(InputCheck, WarnsOfLargeUnixFilesAndRefusesTheLargest) {
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
  for (const auto& [size, ask, answer, said] : rows) {
    const InputBytes input("a.txt", UnixText(size));
    ScriptedConversation ui;
    ui.answers = {answer};
    bool macNoticeShown = false;
    const InputCheck check = CheckInputFile("a.txt", input, {false, ask}, macNoticeShown, ui);
    EXPECT_EQ(check.accepted, size < 512000);
    EXPECT_EQ(check.kind, check.accepted ? FileKind::unixText : FileKind::notText);
    EXPECT_EQ(ui.Said("a.txt"), said);
    if (said.empty()) continue;
    const bool isQuestion = said.starts_with(asks);
    EXPECT_EQ(ui.questions.at(0).icon, isQuestion ? Icon::none : Icon::information);
    EXPECT_EQ(ui.questions.at(0).preset, isQuestion ? Answer::no : Answer::ok);
  }
}

}  // namespace
}  // namespace quorvel
