// The search for two neighbouring characters, several places at once where the
// processor can.
#pragma once

#include <string_view>

namespace quorvel {

// The first place from `i` on, 0-based, where `first` stands and `second` behind it;
// the text's length when there is none.
[[nodiscard]] std::size_t FindPair(std::string_view text, std::size_t i, char first, char second);
[[nodiscard]] std::size_t FindPair(std::u16string_view text, std::size_t i, char16_t first,
                                   char16_t second);

}  // namespace quorvel
