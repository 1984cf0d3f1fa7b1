// Windows-1252 and UTF-8 to 16-bit characters and back.
//
// A document is bytes until its last repair; its words are 16-bit characters, and
// what a run writes is Windows-1252 again. Paths and messages are UTF-8. With the few
// operations on single bytes that all such texts share.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace quorvel {

// What ends each line of a file that the program writes.
inline constexpr std::string_view LINE_END = "\r\n";

// What a file may begin with that is UTF-8.
inline constexpr std::string_view BYTE_ORDER_MARK = "\xEF\xBB\xBF";

// The characters of Windows-1252 bytes, one for each. The five bytes without a
// character (81, 8D, 8F, 90, 9D hex) become the control of the same number.
[[nodiscard]] std::u16string DecodeAnsi(std::string_view bytes);

// Appends the Windows-1252 bytes of `text` to `bytes`, one for each code unit; a
// character that has none becomes "?". A surrogate pair is one character.
void AppendAnsi(std::string& bytes, std::u16string_view text);

// These bytes by themselves.
[[nodiscard]] std::string EncodeAnsi(std::u16string_view text);

// The characters of UTF-8 bytes. Bytes that are not UTF-8 are taken one by one
// as Windows-1252, so that no path or typed word is lost.
[[nodiscard]] std::u16string DecodeUtf8(std::string_view bytes);

// The UTF-8 bytes of `text`; a lone surrogate becomes U+FFFD.
[[nodiscard]] std::string EncodeUtf8(std::u16string_view text);

// The same, appended to `bytes`; and the UTF-8 bytes of one code point up to 10FFFF hex.
void AppendUtf8(std::string& bytes, std::u16string_view text);
void AppendUtf8(std::string& bytes, char32_t codePoint);

// The code point that begins at the 0-based `place`, which is moved behind it; U+FFFD for a lone
// surrogate.
[[nodiscard]] char32_t NextCodePoint(std::u16string_view text, std::size_t& place);

// Appends the one or two code units of a code point.
void AppendCodePoint(std::u16string& text, char32_t codePoint);

// The halves of a character that takes two code units.
[[nodiscard]] constexpr bool IsHighSurrogate(char16_t ch) { return ch >= 0xD800 && ch < 0xDC00; }
[[nodiscard]] constexpr bool IsLowSurrogate(char16_t ch) { return ch >= 0xDC00 && ch < 0xE000; }

// Reads the code point at the front of `bytes`, which are not empty; gives its length in bytes, 0
// when they are not UTF-8.
[[nodiscard]] std::size_t ReadCodePoint(std::string_view bytes, std::uint32_t& codePoint);

// True for the characters that show nothing: 0 to 1F, 7F and 80 to 9F hex.
[[nodiscard]] constexpr bool IsControl(std::uint32_t codePoint) {
  return codePoint < 0x20 || (codePoint >= 0x7F && codePoint < 0xA0);
}

// The UTF-8 bytes of the character at the 0-based `place`, both halves of a surrogate pair.
[[nodiscard]] std::string CharacterAt(std::u16string_view text, std::size_t place);

// `text` with A to Z in lower case, every other byte as it is: for extensions,
// charset names and mark-up.
[[nodiscard]] std::string LowerAscii(std::string_view text);

// `text` without the blanks at its two ends: a view into the argument.
[[nodiscard]] std::string_view TrimBlanks(std::string_view text);

}  // namespace quorvel
