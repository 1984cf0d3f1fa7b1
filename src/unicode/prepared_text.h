// Reads a text file or a web page as Unicode: from its bytes to the text that is scanned for words.
//
// The steps are those of the Windows-1252 reading, but nothing is repaired and no punctuation is
// replaced: the bytes are converted to valid UTF-8 first.
#pragma once

#include <cstdint>
#include <string>

#include "files/read_file.h"
#include "util/fault.h"
#include "util/progress.h"

namespace quorvel {

// The options that decide which text is made from an input.
struct UnicodeOptions {
  bool ignoreLists = false;  // leave out the lists of web pages
  bool notes = false;        // include footnotes and endnotes of word-processor documents
};

// Valid UTF-8 in composed form: lines joined, mark-up removed, blanks compacted, double hyphens
// blanked.
struct PreparedText {
  std::string text;
  std::int64_t replaced = 0;  // number of U+FFFD that replace invalid bytes
};

// Prepares a text file or a web page; the file name tells which it is. Faults: `unknownCharset`
// with its name as the reason, `noHead`, `textTooLong` when the text has more bytes than a position
// can hold, `stopped`.
[[nodiscard]] Result<PreparedText> PrepareUnicodeText(const InputBytes& input,
                                                      const UnicodeOptions& options,
                                                      Progress& progress);

// The last steps for the text of any document: composes its characters and blanks its double
// hyphens.
[[nodiscard]] std::string FinishedText(std::string text);

}  // namespace quorvel
