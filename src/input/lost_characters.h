// How many characters of an input come as UTF-8 and are not in its text.
//
// Its bytes are looked at once more, beside the reading and without a part in it. What is counted
// is what a reader of the listing would miss or find as garbage. What the repair makes plain, or
// drops because it shows nothing, is not lost.
#pragma once

#include <cstdint>
#include <string_view>

#include "files/read_file.h"

namespace quorvel {

// The characters of several bytes that no repair of UTF-8 knows. Bytes that are not UTF-8 are
// passed.
[[nodiscard]] std::int64_t CharactersNotRepaired(std::string_view bytes);

// Those that a text file or a web page loses, whose head does not count, where it is read as UTF-8:
// the same. Where it is read as Windows-1252 although it is UTF-8 from end to end, each of its
// characters of several bytes. A byte-order mark is none.
[[nodiscard]] std::int64_t LostCharacters(const InputBytes& input, bool isUtf8);

}  // namespace quorvel
