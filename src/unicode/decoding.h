// From the bytes of an input, in one of the encodings that texts come in, to valid UTF-8.
//
// Whatever the bytes are, a text comes of them: what is no character of the encoding becomes
// U+FFFD, the replacement character, and is counted. Nothing is repaired or made plain.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quorvel {

// Valid UTF-8, and how many U+FFFD stand in it for bytes that were no characters.
struct Utf8Text {
  std::string text;
  std::int64_t replaced = 0;
};

enum class Charset {
  utf8,
  utf16LittleEndian,
  utf16BigEndian,
  utf32,  // told, but not read
  windows1252,
  iso885915,
};

// What the byte-order mark at the front of a text says, and the length of that mark in bytes.
struct CharsetMark {
  Charset charset;
  std::size_t length;
};

// Nothing where there is no mark.
[[nodiscard]] std::optional<CharsetMark> CharsetMarkOf(std::string_view bytes);

// The text of bytes in a character set other than UTF-32; a mark in front of them is part of the
// text. One U+FFFD comes of each beginning of a UTF-8 sequence that is not completed, of every
// other byte that is no UTF-8, of each lone surrogate and of half a 16-bit unit at the end.
[[nodiscard]] Utf8Text Decode(std::string_view bytes, Charset charset);

// The text of bytes that nothing is known of: by their mark, which is dropped; without one UTF-8
// where more characters of several bytes are valid than bytes are not, or none are wrong, else
// Windows-1252.
[[nodiscard]] Utf8Text TextOfBytes(std::string_view bytes);

}  // namespace quorvel
