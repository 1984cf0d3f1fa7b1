// Conversion between UTF-8 and UTF-16 (16-bit code units), and the code points of both.
//
// Paths, messages and what the user types are UTF-8. The words of a document are UTF-16.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace quorvel {

// The byte order mark that a UTF-8 file may begin with.
inline constexpr std::string_view BYTE_ORDER_MARK = "\xEF\xBB\xBF";

// Decodes UTF-8. A byte that is not part of valid UTF-8 is decoded as Windows-1252, so that no path
// or typed word is lost.
[[nodiscard]] std::u16string DecodeUtf8(std::string_view bytes);

// Encodes `text` as UTF-8. A lone surrogate becomes U+FFFD.
[[nodiscard]] std::string EncodeUtf8(std::u16string_view text);

// Appends `text`, or one code point up to 10FFFF hex, as UTF-8 to `bytes`.
void AppendUtf8(std::string& bytes, std::u16string_view text);
void AppendUtf8(std::string& bytes, char32_t codePoint);

// Returns the code point that begins at the 0-based index `place`, and moves `place` past it. A
// lone surrogate gives U+FFFD.
[[nodiscard]] char32_t NextCodePoint(std::u16string_view text, std::size_t& place);

// Appends `codePoint` as one or two code units.
void AppendCodePoint(std::u16string& text, char32_t codePoint);

// The two halves of a surrogate pair.
[[nodiscard]] constexpr bool IsHighSurrogate(char16_t ch) { return ch >= 0xD800 && ch < 0xDC00; }
[[nodiscard]] constexpr bool IsLowSurrogate(char16_t ch) { return ch >= 0xDC00 && ch < 0xE000; }

// Reads the code point at the front of `bytes`, which must not be empty. Returns its length in
// bytes, or 0 when `bytes` do not begin with valid UTF-8.
[[nodiscard]] std::size_t ReadCodePoint(std::string_view bytes, std::uint32_t& codePoint);

// True for control characters: 0 to 1F, 7F and 80 to 9F hex.
[[nodiscard]] constexpr bool IsControl(std::uint32_t codePoint) {
  return codePoint < 0x20 || (codePoint >= 0x7F && codePoint < 0xA0);
}

// The UTF-8 bytes of the character at the 0-based index `place`. A surrogate pair is one character.
[[nodiscard]] std::string CharacterAt(std::u16string_view text, std::size_t place);

}  // namespace quorvel
