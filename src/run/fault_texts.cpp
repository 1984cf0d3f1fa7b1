#include "run/fault_texts.h"

#include <algorithm>
#include <array>
#include <string>

#include "files/path_names.h"
#include "util/time_text.h"
#include "util/visible_text.h"

namespace quorvel {
namespace {

// The message for one kind of fault. "@" stands for the file or character concerned, "#" for the
// reason if there is also a file.
struct FaultText {
  FaultKind kind;
  const char* text;
  const char* title;
  Icon icon;
};

constexpr const char* FATAL = "Fatal error";
constexpr const char* READ_ERROR = "Read error";
constexpr const char* BAD_STOP_WORD = "Character not allowed";

// Compatibility: the titles of the last two faults differ in case. Users and scripts that automate
// the window know them.
constexpr auto FAULT_TEXTS = std::to_array<FaultText>({
    {FaultKind::missing, "File @ not found.", FATAL, Icon::information},
    {FaultKind::notAFile, "File @\r\nis a device or a pipe, not a file.", FATAL, Icon::information},
    {FaultKind::tooLong, "File @\r\nis too large to be scanned: 2 GB or more.", "File too big",
     Icon::information},
    {FaultKind::notOpened, "File @\r\n cannot be opened (permission denied).", FATAL,
     Icon::information},
    {FaultKind::notRead, "File @\r\ncannot be read.", READ_ERROR, Icon::exclamation},
    {FaultKind::noHead, "This HTML file does not contain a HEAD section.", "Error",
     Icon::exclamation},
    {FaultKind::unknownCharset, "File @\r\nis in the character set #, which cannot be read.",
     READ_ERROR, Icon::exclamation},
    {FaultKind::textTooLong, "The text is longer than 2 GB.\r\nwhen reading input file.",
     READ_ERROR, Icon::exclamation},
    {FaultKind::noTemporaryFolder, "Unable to create temporary folder.", STANDARD_TITLE,
     Icon::exclamation},
    {FaultKind::temporaryFolderFull, "Unable to write to temporary folder.", STANDARD_TITLE,
     Icon::exclamation},
    {FaultKind::fileNotRemoved, "Error when attempting to delete @", "Error", Icon::exclamation},
    // Compatibility: the path comes first and the text ends with a blank. Scripts that automate the
    // window know this message.
    {FaultKind::folderNotRemoved, "@ when attempting to delete folder ", "Error",
     Icon::exclamation},
    {FaultKind::noBody, "File @\r\ncontains no document text.", "Error", Icon::exclamation},
    {FaultKind::bodyTooLarge,
     "@\r\nis too large to be scanned directly.\r\n\r\n"
     "Recommend saving it as a text file and\r\n"
     "applying this program to that file.",
     "File too big", Icon::information},
    {FaultKind::libraryMissing, "File @\r\ncannot be unpacked: #", READ_ERROR, Icon::exclamation},
    {FaultKind::notAllowedInStopWord,
     "The character @ occurs in some stop word\r\nbut is not a character allowed in a word.",
     BAD_STOP_WORD, Icon::exclamation},
    {FaultKind::notAllowedForNow,
     "The character @ occurs in some stop word\r\n"
     "but is not currently set as a character allowed in a word.",
     BAD_STOP_WORD, Icon::exclamation},
    {FaultKind::notAllowedInKeyword,
     "The extra keywords textbox contains an inadmissable character: @", "Invalid input",
     Icon::exclamation},
    {FaultKind::manyPlusSigns, "A keyword cannot contain more then one '+'.", "Invalid Input",
     Icon::information},
});

std::string Filled(std::string text, char mark, const std::string& subject) {
  const std::size_t place = text.find(mark);
  return place == std::string::npos ? text : text.replace(place, 1, subject);
}

}  // namespace

Message MessageOf(const Fault& fault) {
  // For a text file the message gives the system's reason. For a document there is no such reason.
  if (fault.kind == FaultKind::notRead && LowerExtensionOf(fault.file) != "docx") {
    return {fault.reason + "\r\nwhen reading input file.", READ_ERROR};
  }
  const auto* const found =
      std::find_if(FAULT_TEXTS.begin(), FAULT_TEXTS.end(),
                   [&fault](const FaultText& one) { return one.kind == fault.kind; });
  if (found == FAULT_TEXTS.end()) return {fault.reason};
  const std::string text = Filled(found->text, '#', VisibleName(fault.reason));
  const std::string subject = VisibleName(fault.file.empty() ? fault.reason : fault.file);
  Message message = {Filled(text, '@', subject), found->title, found->icon};
  if (fault.kind == FaultKind::notAllowedInStopWord && fault.reason == ",") {
    message.text += "\r\n\r\nWords-to-ignore must be separated by a space, not by a comma.";
  }
  return message;
}

std::string LostCharactersText(std::int64_t count, Reading reading) {
  const std::string number = GroupedNumber(count);
  if (reading == Reading::unicode) {
    return number + " invalid byte sequence" + (count == 1 ? " was" : "s were") +
           " replaced by U+FFFD";
  }
  return number + (count == 1 ? " character is" : " characters are") + " not in Windows-1252";
}

}  // namespace quorvel
