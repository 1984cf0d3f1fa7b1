// Search for two neighbouring characters, using vector instructions where the processor has them.
#pragma once

#include <string_view>

namespace quorvel {

// The 0-based index of the first place at or after `i` where `first` is followed by `second`, or
// the length of the text when there is none.
[[nodiscard]] std::size_t FindPair(std::string_view text, std::size_t i, char first, char second);
[[nodiscard]] std::size_t FindPair(std::u16string_view text, std::size_t i, char16_t first,
                                   char16_t second);

}  // namespace quorvel
