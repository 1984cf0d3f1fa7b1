// A text file or web page as Unicode: from its bytes to the text that is searched for words.
//
// The way is that of the reading in Windows-1252, step for step, but nothing is repaired and no
// punctuation is made plain: the bytes become valid UTF-8 first, all else follows.
#pragma once

#include <cstdint>
#include <string>

#include "files/read_file.h"
#include "util/fault.h"
#include "util/progress.h"

namespace quorvel {

// What decides which text is made of an input.
struct UnicodeOptions {
  bool ignoreLists = false;  // leave out the lists of pages
  bool notes = false;        // add footnotes and endnotes of word-processor documents

  bool operator==(const UnicodeOptions&) const = default;
};

// Valid UTF-8 in its composed form, its lines joined, without mark-up, its blanks compacted, its
// double hyphens blanked.
struct PreparedText {
  std::string text;
  std::int64_t replaced = 0;  // how many U+FFFD stand for bytes that were no characters
};

// The prepared text of a text file or web page; the name tells one from the other, as everywhere.
// `unknownCharset` with its name as the reason, `noHead`, `textTooLong` where its bytes cannot all
// be counted, `stopped`.
[[nodiscard]] Result<PreparedText> PrepareUnicodeText(const InputBytes& input,
                                                      const UnicodeOptions& options,
                                                      Progress& progress);

// What is done last with every text, whatever document it came from: composes its characters and
// blanks its double hyphens.
[[nodiscard]] std::string FinishedText(std::string text);

}  // namespace quorvel
