#include "run/input_check.h"

#include <cstdint>

#include "files/file_system.h"
#include "files/path_names.h"
#include "input/file_kind.h"
#include "run/fault_texts.h"
#include "unicode/packed_documents.h"
#include "util/time_text.h"
#include "util/visible_text.h"

namespace quorvel {
namespace {

constexpr std::int64_t UNIX_REFUSED_ABOVE = 512000;  // bytes
constexpr std::int64_t UNIX_WARNED_ABOVE = 256000;
constexpr std::size_t EXAMINED_BYTES = 16384;

constexpr const char* ADVICE_HEAD = " a program such as Notepad++\r\n";
constexpr const char* ADVICE_END = "to convert the line endings to Windows-type (CR+LF).";

void Inform(Conversation& ui, const std::string& text, const std::string& title) {
  ui.Tell(text, title, Icon::information);
}

// The message about a file that is not a text, or an empty text.
std::string FatalMessage(FileKind kind, Reading reading, const std::string& path) {
  const std::string file = "File " + VisibleName(path);
  switch (kind) {
    case FileKind::empty:
      return file + " is zero-length.";
    case FileKind::oneToFourBytes:
      return file + "\r\ncontains only from 1 to 4 bytes.";
    case FileKind::rtf:
      return file + "\r\nis an RTF file.";
    case FileKind::utf16:
      if (reading == Reading::unicode) return {};
      [[fallthrough]];
    case FileKind::otherUnicode:
      return file + "\r\nis a Unicode file but not UTF-8 encoded.";
    case FileKind::compound:
      return file +
             "\r\nis an encrypted or older word-processor file.\r\n"
             "Open it in a word processor and save it without a password as DOCX.";
    default:
      return {};
  }
}

// Reports why an input could not be read. All files that exist and cannot be opened, including
// devices, get the same message.
void TellUnread(const Fault& fault, bool quiet, Conversation& ui) {
  if (fault.kind == FaultKind::stopped || fault.file.empty()) return;
  const bool isTold =
      fault.kind == FaultKind::missing || (fault.kind == FaultKind::tooLong && !quiet);
  ui.Ask(MessageOf({isTold ? fault.kind : FaultKind::notOpened, fault.file, {}}));
}

void ShowMacNotice(const std::string& path, Conversation& ui) {
  Inform(ui,
         "File " + VisibleName(path) +
             "\r\nhas Macintosh-type line endings (CR).\r\n\r\nYou might wish to use" +
             ADVICE_HEAD + ADVICE_END,
         "This is a Mac-style text file");
}

// A single LF does not end a line, so the file is one long line. Small files are accepted, larger
// ones with a warning, and the largest are refused.
bool AcceptUnixFile(const InputBytes& input, bool askToContinue, Conversation& ui) {
  const std::int64_t size = std::ssize(input.View());
  if (size <= UNIX_WARNED_ABOVE) return true;
  const std::string head = "File " + VisibleName(input.Path()) +
                           "\r\nhas Unix-type line endings (LF).\r\n\r\nThe size of this file is " +
                           SizeText(size) + "\r\n";
  if (size > UNIX_REFUSED_ABOVE) {
    Inform(ui,
           head + "so processing of this file would take a long time.\r\n\r\n" +
               "You can process this file by first using" + ADVICE_HEAD + ADVICE_END,
           "Cannot process this file");
    return false;
  }
  const std::string warning = head + "so processing of this file might be rather slow.\r\n\r\n" +
                              "It is advisable to use" + ADVICE_HEAD + ADVICE_END;
  if (!askToContinue) {
    // Compatibility: the title of the form that does not ask is shorter. Scripts that automate the
    // window know both titles.
    Inform(ui, warning, "This is a Unix-style file");
    return true;
  }
  const std::string title = "This is a Unix-style text file";
  const std::string question = warning + "\r\n\r\nDo you wish to continue processing this file?";
  if (ui.Ask({question, title, Icon::none, Buttons::yesNo, Answer::no}) == Answer::yes) return true;
  ui.Tell("Operation canceled.", title, Icon::none);
  return false;
}

// The question about a file whose encoding seems to differ from the setting. Its default keeps the
// setting, because the user may have changed the check box after the file was examined.
Message EncodingQuestion(bool inputIsUtf8) {
  Message question;
  question.text = inputIsUtf8
                      ? "This file does not seem to be UTF-8 encoded.\r\n"
                        "Click 'Yes' to scan it as UTF-8 encoded (not advisable)\r\n"
                        "or 'No' to scan it as ANSI."
                      : "This file seems to be UTF-8 encoded.\r\n"
                        "Click 'Yes' to scan it as UTF-8 encoded or 'No' to scan it as ANSI.";
  question.title = "UTF-8 or ANSI file?";
  question.icon = Icon::none;
  question.buttons = Buttons::yesNoCancel;
  question.preset = inputIsUtf8 ? Answer::yes : Answer::no;
  return question;
}

}  // namespace

InputCheck CheckInputFile(const Result<InputBytes>& input, const CheckOptions& options,
                          bool& macNoticeShown, Conversation& ui) {
  if (!input) {
    TellUnread(input.Error(), options.quiet, ui);
    return {};
  }
  const FileClass found = ClassifyTextFile(*input, EXAMINED_BYTES, true);
  InputCheck check = {false, found.isUtf8};
  if (found.kind == FileKind::noPath) return check;
  if (const std::string message = FatalMessage(found.kind, options.reading, input->Path());
      !message.empty()) {
    Inform(ui, message, "Fatal error");
    return check;
  }
  check.accepted = true;
  if (options.quiet || options.reading == Reading::unicode) return check;
  if (found.kind == FileKind::macText && !macNoticeShown) {
    macNoticeShown = true;
    ShowMacNotice(input->Path(), ui);
  }
  if (found.kind == FileKind::unixText) {
    check.accepted = AcceptUnixFile(*input, options.askToContinue, ui);
  }
  return check;
}

bool CheckNotOwnOutput(const std::string& path, Conversation& ui) {
  const char* const title = "Invalid input";
  if (IsConcordanceFileName(path)) ui.Tell("This is an QVL concordance file.", title);
  if (IsIndexFileName(path)) ui.Tell("This is an QVL index file.", title);
  return !IsConcordanceFileName(path) && !IsIndexFileName(path);
}

bool CheckExtension(const std::string& path, Reading reading, const std::string& title,
                    Conversation& ui) {
  if (LowerExtensionOf(path) == "txt" || PathNamesHtml(path) || IsPackedName(path, reading)) {
    return true;
  }
  Inform(ui, "This program acts only on text files,\r\nWord DOCX files and HTML files.", title);
  return false;
}

bool CheckInputReadable(const std::string& path, Conversation& ui) {
  Fault fault = {FaultKind::missing, path, {}};
  if (FileExists(path)) {
    const bool isFile = IsRegularFile(path);
    if (isFile && FileLength(path).value_or(0) <= std::int64_t{LONGEST_INPUT}) return true;
    fault.kind = isFile ? FaultKind::tooLong : FaultKind::notAFile;
  }
  ui.Ask(MessageOf(fault));
  return false;
}

bool SettleInputEncoding(const InputBytes& input, EncodingChoice choice, bool& inputIsUtf8,
                         bool& macNoticeShown, Conversation& ui) {
  const bool asks = choice == EncodingChoice::confirm;
  const InputCheck check = CheckInputFile(input, {.askToContinue = asks}, macNoticeShown, ui);
  if (!check.accepted) return false;
  if (check.isUtf8 == inputIsUtf8) return true;
  if (!asks) {
    inputIsUtf8 = check.isUtf8;
    return true;
  }
  const Answer answer = ui.Ask(EncodingQuestion(inputIsUtf8));
  if (answer == Answer::cancel) return false;
  inputIsUtf8 = answer == Answer::yes;
  return true;
}

}  // namespace quorvel
