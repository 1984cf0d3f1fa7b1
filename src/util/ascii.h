// ASCII: fast tests for it, and the few operations on its letters and blanks.
//
// Most bytes of most texts are ASCII, so conversion and counting handle several of these bytes at a
// time.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <type_traits>

namespace quorvel {

inline constexpr unsigned FIRST_BEYOND_ASCII = 0x80;

// True when the eight bytes from `bytes` on are ASCII. All eight must be readable.
[[nodiscard]] inline bool AreEightAscii(const char* bytes) {
  constexpr std::uint64_t HIGH_BITS = 0x8080808080808080;
  std::uint64_t eight = 0;
  std::memcpy(&eight, bytes, sizeof(eight));
  return (eight & HIGH_BITS) == 0;
}

// True when all of `text` (bytes or code units) is ASCII. The loop has no early exit: with a length
// known at compile time, the compiler vectorizes it.
template <typename Char>
[[nodiscard]] bool IsAscii(std::basic_string_view<Char> text) {
  std::make_unsigned_t<Char> all = 0;
  for (const Char ch : text) all |= static_cast<std::make_unsigned_t<Char>>(ch);
  return all < FIRST_BEYOND_ASCII;
}

// The number of ASCII bytes at the front of `bytes`. Blocks are tested with vector instructions.
[[nodiscard]] inline std::size_t AsciiLength(std::string_view bytes) {
  constexpr std::size_t BLOCK = 64;
  constexpr std::size_t STEP = sizeof(std::uint64_t);
  std::size_t length = 0;
  if (bytes.size() >= BLOCK && AreEightAscii(bytes.data())) {
    while (length + BLOCK <= bytes.size() && IsAscii(std::string_view(&bytes[length], BLOCK))) {
      length += BLOCK;
    }
  }
  while (length + STEP <= bytes.size() && AreEightAscii(&bytes[length])) {
    length += STEP;
  }
  while (length < bytes.size() && static_cast<std::uint8_t>(bytes[length]) < FIRST_BEYOND_ASCII) {
    ++length;
  }
  return length;
}

// Returns `text` with A to Z in lower case and all other bytes unchanged. Used for file extensions,
// charset names and mark-up.
[[nodiscard]] std::string LowerAscii(std::string_view text);

// Returns `text` without leading and trailing blanks, as a view into the argument.
[[nodiscard]] std::string_view TrimBlanks(std::string_view text);

}  // namespace quorvel
