// A fast hash of a short text, for tables that live as long as a run. Its values
// differ between machines and are never stored.
#pragma once

#include <bit>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace quorvel {

namespace detail {
constexpr std::uint64_t MixHash(std::uint64_t hash, std::uint64_t part) {
  constexpr std::uint64_t MULTIPLIER = 0x9E3779B97F4A7C15U;
  return std::rotl((hash ^ part) * MULTIPLIER, 29);
}

constexpr std::uint32_t FinishHash(std::uint64_t first, std::uint64_t second) {
  return static_cast<std::uint32_t>(MixHash(first, second) >> 16U);
}
}  // namespace detail

// Of a text that is held in two numbers.
[[nodiscard]] constexpr std::uint32_t HashOf(std::uint64_t front, std::uint64_t back) {
  return detail::FinishHash(detail::MixHash(0, front), back);
}

// Mixes sixteen bytes a step in two halves, which the processor does side by side;
// the last step takes the last sixteen, whether or not they were taken before.
template <typename Character>
[[nodiscard]] std::uint32_t HashOf(std::basic_string_view<Character> text) {
  constexpr std::size_t HALF = sizeof(std::uint64_t) / sizeof(Character);
  const auto unitsAt = [text](std::size_t i) {
    std::uint64_t units = 0;
    std::memcpy(&units, text.data() + i, sizeof(units));
    return units;
  };
  std::uint64_t first = text.size();
  std::uint64_t second = 0;
  if (text.size() < HALF) {
    for (const Character ch : text) first = detail::MixHash(first, static_cast<std::uint64_t>(ch));
  } else {
    for (std::size_t i = 0; i + 2 * HALF < text.size(); i += 2 * HALF) {
      first = detail::MixHash(first, unitsAt(i));
      second = detail::MixHash(second, unitsAt(i + HALF));
    }
    const std::size_t last = text.size() - HALF;
    first = detail::MixHash(first, unitsAt(last < HALF ? 0 : last - HALF));
    second = detail::MixHash(second, unitsAt(last));
  }
  return detail::FinishHash(first, second);
}

}  // namespace quorvel
