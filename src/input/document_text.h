// From the chosen input file to its text, as bytes.
//
// Takes the text out of a word-processor document, or settles the encoding of a
// text file with the user and reads it. What comes out still holds the mark-up of a
// web page, and its blanks are not compacted yet.
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

// Checks the input file and asks the user where it looks different from their
// setting `inputIsUtf8`, which takes the answer. False when the file was refused or
// the user cancelled.
[[nodiscard]] bool ConfirmInputEncoding(const std::string& path, bool& inputIsUtf8,
                                        bool& macNoticeShown, UserInterface& ui);

// The same without a question: the setting becomes what was detected.
[[nodiscard]] bool AdoptDetectedEncoding(const std::string& path, bool& inputIsUtf8,
                                         bool& macNoticeShown, UserInterface& ui);

// The text of a text file or web page: its non-empty lines, joined by one blank
// for a page, by " / " otherwise, with UTF-8 repaired. Nothing when reading failed
// (the user has been told) or a stop was requested meanwhile.
[[nodiscard]] std::optional<std::string> ReadInputFile(const std::string& path, bool isUtf8,
                                                       UserInterface& ui);

// Whether a file is a word-processor document: named so, and a zip archive by its
// first bytes. Anything else named "docx" is read like a text file.
[[nodiscard]] bool IsWordDocument(const std::string& path);

// The text of a word-processor document, which counts as UTF-8: then `inputIsUtf8`
// is set. Nothing when the document cannot be used (the user has been told or has
// declined) or the user stopped.
[[nodiscard]] std::optional<std::string> ReadWordDocument(const std::string& path,
                                                          bool& inputIsUtf8, UserInterface& ui);

// The text of the input file, of either kind, or nothing when the run cannot go on.
[[nodiscard]] std::optional<std::string> ObtainDocumentText(const std::string& path,
                                                            EncodingChoice choice,
                                                            bool& inputIsUtf8, bool& macNoticeShown,
                                                            UserInterface& ui);

}  // namespace quorvel
