// Whether an input can be worked on, and what the user is told and asked about that.
#pragma once

#include <optional>
#include <string>

#include "files/read_file.h"
#include "input/input_file.h"
#include "run/conversation.h"
#include "util/alphabet.h"
#include "util/fault.h"

namespace quorvel {

struct CheckOptions {
  Reading reading = Reading::windows1252;  // in Unicode any line ends and UTF-16 will do
  bool quiet = false;                      // only the fatal messages may appear
  bool askToContinue = false;  // ask, not only warn, about a large file with Unix line ends
};

struct InputCheck {
  bool accepted = false;
  FileKind kind = FileKind::noPath;
  bool isUtf8 = false;
};

// Classifies an input, or why it could not be read, and tells the user whatever stands in the way.
// The notice on Macintosh line ends is given once in the life of `macNoticeShown`.
[[nodiscard]] InputCheck CheckInputFile(const std::string& path, const Result<InputBytes>& input,
                                        const CheckOptions& options, bool& macNoticeShown,
                                        Conversation& ui);

// Whether `path` names no file that the program itself writes; else the user is told.
[[nodiscard]] bool PassesOwnFilesGate(const std::string& path, Conversation& ui);

// The gate at the start of a run: only text files, DOCX files and web pages pass, in Unicode ODT
// and EPUB files too, told by name alone. `title` is that of the message for all others.
[[nodiscard]] bool PassesExtensionGate(const std::string& path, Reading reading,
                                       const std::string& title, Conversation& ui);

// Whether the input exists and is an ordinary file whose every character has a place that a 32-bit
// number can hold. Tells the user if not. Does not open it.
[[nodiscard]] bool CheckInputReadable(const std::string& path, Conversation& ui);

// How the encoding of a text file is settled before it is read.
enum class EncodingChoice {
  confirm,       // the user is asked when the file looks different from the setting
  adoptDetected  // what was detected becomes the setting, without a question
};

// Checks the input and, where it looks different from the setting `inputIsUtf8`, settles that as
// `choice` says. False when the input was refused or the user cancelled.
[[nodiscard]] bool SettleInputEncoding(const InputBytes& input, EncodingChoice choice,
                                       bool& inputIsUtf8, bool& macNoticeShown, Conversation& ui);

}  // namespace quorvel
