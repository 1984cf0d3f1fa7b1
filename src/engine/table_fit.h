// Whether a word table that was read from a file is what a scan of a text would give.
#pragma once

#include <string_view>

#include "engine/words.h"

namespace quorvel {

// True when each word of `table` stands at its places in `text`, whose double hyphens are
// blanked, as the scan would have recorded it, and no word follows the last place. Of a
// word that is not included only the first and the last place are looked at. A table
// made from the same file under other settings (encoding, lists left out) never fits,
// since these move whatever follows. Places must ascend. Not looked for: words left out
// of the table between others.
[[nodiscard]] bool TableFitsText(const WordTable& table, const IncludeFlags& include,
                                 std::u16string_view text, const Alphabet& alphabet);

}  // namespace quorvel
