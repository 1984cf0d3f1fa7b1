#include "input/document_text.h"

#include <cerrno>
#include <cstdint>
#include <limits>
#include <utility>

#include "files/file_system.h"
#include "files/path_names.h"
#include "input/docx_text.h"
#include "input/input_file.h"
#include "input/text_file.h"
#include "input/utf8_repair.h"

namespace quorvel {
namespace {

// The box about a file that looks different from the setting. Enter keeps what
// the user has set: they have been at the check box after the file was looked at.
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

std::optional<std::string> ReadFailed(const std::string& errorText, UserInterface& ui) {
  ui.Tell(errorText + "\r\nwhen reading input file.", "Read error");
  ui.SetOutput("");
  return std::nullopt;
}

// Tells why a document gave no text; nothing where the user knows.
void ReportExtractionFailure(ExtractionCode code, const std::string& path, UserInterface& ui) {
  switch (code) {
    case ExtractionCode::noTemporaryFolder:
      return ui.Tell("Unable to create temporary folder.", STANDARD_TITLE);
    case ExtractionCode::unwritable:
      return ui.Tell("Unable to write to temporary folder.", STANDARD_TITLE);
    case ExtractionCode::damaged:
      return ui.Tell("Invalid checksum found when processing\r\n" + path, "Error");
    case ExtractionCode::unreadable:
      return ui.Tell("File " + path + "\r\ncannot be read.", "Read error");
    case ExtractionCode::noBody:
      return ui.Tell("File " + path + "\r\nholds no document text.", "Error");
    case ExtractionCode::tooLarge:
      return ui.Tell(path +
                         "\r\nis too large to be scanned directly.\r\n\r\n"
                         "Recommend saving it as a text file and\r\n"
                         "applying this program to that file.",
                     "File too big", Icon::information);
    case ExtractionCode::success:
    case ExtractionCode::damageDeclined:
    case ExtractionCode::sizeDeclined:
    case ExtractionCode::stopped:
      return;
  }
}

}  // namespace

bool ConfirmInputEncoding(const std::string& path, bool& inputIsUtf8, bool& macNoticeShown,
                          UserInterface& ui) {
  CheckOptions options;
  options.askToContinue = true;
  const InputCheck check = CheckInputFile(path, options, macNoticeShown, ui);
  if (!check.accepted) return false;
  if (check.isUtf8 == inputIsUtf8) return true;
  const Answer answer = ui.Ask(EncodingQuestion(inputIsUtf8));
  if (answer == Answer::cancel) return false;
  inputIsUtf8 = answer == Answer::yes;
  return true;
}

bool AdoptDetectedEncoding(const std::string& path, bool& inputIsUtf8, bool& macNoticeShown,
                           UserInterface& ui) {
  const InputCheck check = CheckInputFile(path, {}, macNoticeShown, ui);
  if (check.accepted) inputIsUtf8 = check.isUtf8;
  return check.accepted;
}

std::optional<std::string> ReadInputFile(const std::string& path, bool isUtf8, UserInterface& ui) {
  ui.AppendOutput("Reading file ...\r\n");
  const bool isPage = PathNamesHtml(path);
  ReadOptions options;
  options.skipEmptyLines = true;
  options.convertUtf8 = isUtf8;
  options.cleanUp = true;
  options.join = isPage ? LineJoin::blank : LineJoin::slash;
  TextFile file = ReadTextFile(path, options);
  if (!file.errorText.empty()) return ReadFailed(file.errorText, ui);
  if (file.text.size() > std::numeric_limits<std::int32_t>::max()) {
    return ReadFailed("The text is longer than 2 GB.", ui);
  }
  if (isUtf8 && !isPage) {
    // Once more over the whole text, which was repaired line by line: what stands
    // alone in its line can be completed only now, and texts in use rest on it.
    ui.AppendOutput("Converting UTF-8 ...\r\n");
    RepairUtf8(file.text);
    PlainPunctuation(file.text);
  }
  ui.YieldNow();
  if (ui.StopRequested()) {
    ui.AppendOutput("Stopped when reading file.\r\n");
    return std::nullopt;
  }
  return std::move(file.text);
}

bool IsWordDocument(const std::string& path) {
  constexpr std::uint64_t FEWEST_BYTES = 10;
  if (LowerExtensionOf(path) != "docx") return false;
  const FileRead start = ReadFileBytes(path, FEWEST_BYTES);
  // One that cannot be read is no text either, and reading it as a document says what is wrong.
  if (!start.error.empty() && start.errorNumber != ENOENT) return true;
  return start.bytes.size() == FEWEST_BYTES && start.bytes.starts_with("PK\x03\x04");
}

std::optional<std::string> ReadWordDocument(const std::string& path, bool& inputIsUtf8,
                                            UserInterface& ui) {
  ui.AppendOutput("Extracting text ...\r\n");
  ExtractedText extracted = ExtractDocumentText(path, "QVL", {}, ui);
  if (extracted.code != ExtractionCode::success) {
    ReportExtractionFailure(extracted.code, path, ui);
    return std::nullopt;
  }
  inputIsUtf8 = true;
  return std::move(extracted.text);
}

std::optional<std::string> ObtainDocumentText(const std::string& path, EncodingChoice choice,
                                              bool& inputIsUtf8, bool& macNoticeShown,
                                              UserInterface& ui) {
  if (IsWordDocument(path)) return ReadWordDocument(path, inputIsUtf8, ui);
  const auto settleEncoding =
      choice == EncodingChoice::confirm ? ConfirmInputEncoding : AdoptDetectedEncoding;
  if (!settleEncoding(path, inputIsUtf8, macNoticeShown, ui)) {
    ui.SetOutput("");
    return std::nullopt;
  }
  return ReadInputFile(path, inputIsUtf8, ui);
}

}  // namespace quorvel
