// Checks that a word table read from a file is the one that a scan of the text would give.
#pragma once

#include <string_view>

#include "engine/words.h"

namespace quorvel {

// Returns true when each word of `table` stands at its positions in `text` as the scan would have
// recorded it, and no word follows the last position. Double hyphens in `text` must be blanked
// already, and the positions of each word must ascend. For words that are not included only the
// first and the last position are checked. Words that are missing from the table between others are
// not detected. A table made from the same file with other settings (encoding, lists left out)
// never fits, because these settings shift the positions.
[[nodiscard]] bool TableFitsText(const WordTable& table, const IncludeFlags& include,
                                 std::u16string_view text, const Alphabet& alphabet);

}  // namespace quorvel
