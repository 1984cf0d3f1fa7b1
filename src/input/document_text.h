// From the chosen input file to its text, as bytes.
//
// Settles the encoding with the user, then reads the file. What comes out still
// holds the mark-up of a web page, and its blanks are not compacted yet.
#pragma once

#include <optional>
#include <string>

#include "util/user_interface.h"

namespace quorvel {

// How the encoding of a text file is settled before it is read.
enum class EncodingChoice {
  confirm,       // the user is asked when the file looks different from the setting
  adoptDetected  // what was detected becomes the setting, without a question
};

// Checks the input file and settles `inputIsUtf8`, the user's setting, in the way
// that `choice` says. False when the file was refused or the user cancelled.
[[nodiscard]] bool SettleInputEncoding(const std::string& path, EncodingChoice choice,
                                       bool& inputIsUtf8, bool& macNoticeShown, UserInterface& ui);

// The text of a text file or web page: its non-empty lines, joined by one blank
// for a page, by " / " otherwise, with UTF-8 repaired. Nothing when reading failed
// (the user has been told) or a stop was requested meanwhile.
[[nodiscard]] std::optional<std::string> ReadInputFile(const std::string& path, bool isUtf8,
                                                       UserInterface& ui);

// Both of the above: the text of the input file, or nothing when the run cannot
// go on; then the output box is empty or says why.
[[nodiscard]] std::optional<std::string> ObtainDocumentText(const std::string& path,
                                                            EncodingChoice choice,
                                                            bool& inputIsUtf8, bool& macNoticeShown,
                                                            UserInterface& ui);

}  // namespace quorvel
