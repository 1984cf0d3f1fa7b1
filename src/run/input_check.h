// Checks whether an input can be used, with the messages and questions for the user.
#pragma once

#include <string>

#include "files/read_file.h"
#include "run/conversation.h"
#include "util/alphabet.h"
#include "util/fault.h"

namespace quorvel {

struct CheckOptions {
  Reading reading = Reading::windows1252;  // Unicode accepts any line ends and UTF-16
  bool quiet = false;                      // show only fatal messages
  bool askToContinue = false;              // instead of only warning about a large Unix file
};

struct InputCheck {
  bool accepted = false;
  bool isUtf8 = false;
};

// Classifies an input, or the fault of reading it, and tells the user about any problem. The notice
// about Macintosh line ends is shown only if `macNoticeShown` is false, which then becomes true.
[[nodiscard]] InputCheck CheckInputFile(const Result<InputBytes>& input,
                                        const CheckOptions& options, bool& macNoticeShown,
                                        Conversation& ui);

// True when `path` does not name a file that the program itself writes. Otherwise tells the user.
[[nodiscard]] bool CheckNotOwnOutput(const std::string& path, Conversation& ui);

// Checks the file name at the start of a run: only text files, DOCX files and web pages are
// accepted, in the Unicode reading also ODT and EPUB files. The message for other files has the
// title `title`.
[[nodiscard]] bool CheckExtension(const std::string& path, Reading reading,
                                  const std::string& title, Conversation& ui);

// True when the input exists and is an ordinary file whose positions fit in 32-bit numbers.
// Otherwise tells the user. Does not open the file.
[[nodiscard]] bool CheckInputReadable(const std::string& path, Conversation& ui);

// How the encoding of a text file is decided before it is read.
enum class EncodingChoice {
  confirm,       // ask the user when the file looks different from the setting
  adoptDetected  // the detected encoding becomes the setting, without a question
};

// Checks the input. If its encoding seems to differ from the setting `inputIsUtf8`, updates that as
// `choice` says. Returns false when the input was refused or the user cancelled.
[[nodiscard]] bool SettleInputEncoding(const InputBytes& input, EncodingChoice choice,
                                       bool& inputIsUtf8, bool& macNoticeShown, Conversation& ui);

}  // namespace quorvel
