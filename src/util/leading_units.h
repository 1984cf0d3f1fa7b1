// The beginning of a text as a number, for sorting.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace quorvel {

// The first four code units of `text` as one number, with zeros after the end of a shorter text. A
// smaller number belongs to an earlier text, and it decides most comparisons of a sort without
// following a pointer. Equal numbers decide nothing.
[[nodiscard]] inline std::uint64_t LeadingUnits(std::u16string_view text) {
  constexpr std::size_t UNITS = sizeof(std::uint64_t) / sizeof(char16_t);
  std::uint64_t number = 0;
  for (std::size_t i = 0; i < UNITS; ++i) {
    number = (number << 16U) | (i < text.size() ? text[i] : 0U);
  }
  return number;
}

}  // namespace quorvel
