// A fast hash of a short text, for hash tables in memory. Its values differ from run to run and are
// never stored.
//
// Input is untrusted, so an attacker must not be able to construct texts that collide. Secret seeds
// are mixed into both factors of every multiplication, and both halves of the product are used.
#pragma once

#include <cstdint>
#include <cstring>
#include <string_view>

#include "util/hash_seed.h"

namespace quorvel {

namespace detail {
struct WideProduct {
  std::uint64_t low = 0;
  std::uint64_t high = 0;
};

constexpr WideProduct Multiply(std::uint64_t a, std::uint64_t b) {
  __extension__ using Wide = unsigned __int128;
  const Wide product = static_cast<Wide>(a) * b;
  return {static_cast<std::uint64_t>(product), static_cast<std::uint64_t>(product >> 64U)};
}
}  // namespace detail

// Hashes a text of up to 16 bytes that is held in two numbers.
[[nodiscard]] constexpr std::uint32_t HashOf(std::uint64_t front, std::uint64_t back,
                                             const HashSeed& seed) {
  const detail::WideProduct first = detail::Multiply(front ^ seed[0], back ^ seed[1]);
  const detail::WideProduct last = detail::Multiply(first.low ^ seed[2], first.high ^ seed[3]);
  return static_cast<std::uint32_t>(last.low ^ last.high);
}

// Mixes sixteen bytes in each step. The last step takes the last sixteen bytes and may overlap the
// previous step.
template <typename Character>
[[nodiscard]] std::uint32_t HashOf(std::basic_string_view<Character> text, const HashSeed& seed) {
  constexpr std::size_t HALF = sizeof(std::uint64_t) / sizeof(Character);
  const auto unitsAt = [text](std::size_t i) {
    std::uint64_t units = 0;
    std::memcpy(&units, text.data() + i, sizeof(units));
    return units;
  };
  std::uint64_t mixed = text.size();
  if (text.size() < HALF) {
    std::uint64_t units = 0;
    std::memcpy(&units, text.data(), text.size() * sizeof(Character));
    return HashOf(units, mixed, seed);
  }
  for (std::size_t i = 0; i + 2 * HALF < text.size(); i += 2 * HALF) {
    const detail::WideProduct step =
        detail::Multiply(unitsAt(i) ^ seed[0], unitsAt(i + HALF) ^ seed[1] ^ mixed);
    mixed = step.low ^ step.high;
  }
  const std::size_t last = text.size() - HALF;
  return HashOf(unitsAt(last < HALF ? 0 : last - HALF), unitsAt(last) ^ mixed, seed);
}

}  // namespace quorvel
