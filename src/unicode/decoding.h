// Decodes the bytes of an input, in one of the supported encodings, to valid UTF-8.
//
// Decoding never fails: bytes that are no character of the encoding become U+FFFD, the replacement
// character, and are counted. Nothing is repaired or simplified.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quorvel {

// Valid UTF-8, and the number of U+FFFD that replace invalid bytes.
struct Utf8Text {
  std::string text;
  std::int64_t replaced = 0;
};

enum class Charset {
  utf8,
  utf16LittleEndian,
  utf16BigEndian,
  utf32,  // detected, but not supported
  windows1252,
  iso885915,
};

// A byte-order mark: the character set that it indicates, and its length in bytes.
struct CharsetMark {
  Charset charset;
  std::size_t length;
};

// Returns nothing when `bytes` do not begin with a byte-order mark.
[[nodiscard]] std::optional<CharsetMark> CharsetMarkOf(std::string_view bytes);

// Decodes `bytes`, in any character set but UTF-32. A byte-order mark is decoded like other text.
// One U+FFFD replaces each truncated UTF-8 sequence, each other byte that is not valid UTF-8, each
// lone surrogate, and half a 16-bit unit at the end.
[[nodiscard]] Utf8Text Decode(std::string_view bytes, Charset charset);

// Decodes bytes of unknown encoding. A byte-order mark decides and is dropped. Without one, the
// text is UTF-8 if all bytes are valid or valid multi-byte characters outnumber invalid bytes;
// otherwise it is Windows-1252.
[[nodiscard]] Utf8Text TextOfBytes(std::string_view bytes);

}  // namespace quorvel
