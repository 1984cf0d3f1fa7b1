// Counts the characters of an input that are encoded in UTF-8 and missing from its text.
//
// The bytes are examined separately from the reading. The count covers what a reader of the listing
// would miss or see as garbage. Characters that the repair replaces by plain ones, or removes
// because they are invisible, do not count.
#pragma once

#include <cstdint>
#include <string_view>

#include "files/read_file.h"

namespace quorvel {

// The number of multi-byte characters that no repair of UTF-8 handles. Bytes that are not UTF-8 are
// skipped.
[[nodiscard]] std::int64_t CharactersNotRepaired(std::string_view bytes);

// The number of characters that a text file or a web page loses; the head of a page does not count.
// A file read as UTF-8 loses what CharactersNotRepaired counts. A file read as Windows-1252 that is
// entirely valid UTF-8 loses all its multi-byte characters. A byte-order mark does not count.
[[nodiscard]] std::int64_t LostCharacters(const InputBytes& input, bool isUtf8);

}  // namespace quorvel
