// The reader of word files: the one format of stop-words files and keywords files.
//
// Plain text, one word or several, separated by blanks, in a line; lines that begin
// with "/*" or end with "*/" are comments, and so is all that stands between two
// such. Windows-1252 and UTF-8 give the same words. What a word may hold, and in
// which order words are kept, is for the two lists to say.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "util/alphabet.h"
#include "util/fault.h"
#include "util/progress.h"

namespace quorvel {

// The words of a file in the order that they stand in, unchanged. `stopped`.
[[nodiscard]] Result<std::vector<std::u16string>> WordsOfFileBytes(std::string_view bytes,
                                                                   const Alphabet& alphabet,
                                                                   Progress& progress);

// The words between the blanks of `text`: views into it.
[[nodiscard]] std::vector<std::u16string_view> SplitAtBlanks(std::u16string_view text);

}  // namespace quorvel
