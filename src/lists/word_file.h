// Reads word files: the common format of stop-words files and keywords files.
//
// A word file is plain text with one or more words on each line, separated by blanks. Lines that
// begin with "/*" or end with "*/" are comments, and so are all lines between them. Windows-1252
// and UTF-8 give the same words. The two lists themselves decide which words are valid and how they
// are sorted.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "util/alphabet.h"
#include "util/fault.h"
#include "util/progress.h"

namespace quorvel {

// Returns the words of a file, unchanged and in their order. Fault: `stopped`.
[[nodiscard]] Result<std::vector<std::u16string>> WordsOfFileBytes(std::string_view bytes,
                                                                   const Alphabet& alphabet,
                                                                   Progress& progress);

// Splits `text` at blanks. Returns views into `text`.
[[nodiscard]] std::vector<std::u16string_view> SplitAtBlanks(std::u16string_view text);

}  // namespace quorvel
