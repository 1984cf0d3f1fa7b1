// How far a text is ASCII, told some characters at a time: most of nearly every text is, and what
// converts or counts characters goes over it at once.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <type_traits>

namespace quorvel {

inline constexpr unsigned FIRST_BEYOND_ASCII = 0x80;

// The highest bit of each of eight bytes.
inline constexpr std::uint64_t HIGH_BITS = 0x8080808080808080;

// Whether the eight bytes at `bytes` are ASCII.
[[nodiscard]] inline bool AreEightAscii(const char* bytes) {
  std::uint64_t eight = 0;
  std::memcpy(&eight, bytes, sizeof(eight));
  return (eight & HIGH_BITS) == 0;
}

// Whether all of a text is ASCII, of bytes or of code units. Without a jump: for short parts, of a
// length that the compiler knows.
template <typename Char>
[[nodiscard]] bool IsAscii(std::basic_string_view<Char> text) {
  std::make_unsigned_t<Char> all = 0;
  for (const Char ch : text) all |= static_cast<std::make_unsigned_t<Char>>(ch);
  return all < FIRST_BEYOND_ASCII;
}

// How many bytes at the front are ASCII.
[[nodiscard]] inline std::size_t AsciiLength(std::string_view bytes) {
  constexpr std::size_t STEP = sizeof(std::uint64_t);
  std::size_t length = 0;
  while (length + STEP <= bytes.size() && AreEightAscii(&bytes[length])) {
    length += STEP;
  }
  while (length < bytes.size() && static_cast<std::uint8_t>(bytes[length]) < FIRST_BEYOND_ASCII) {
    ++length;
  }
  return length;
}

}  // namespace quorvel
