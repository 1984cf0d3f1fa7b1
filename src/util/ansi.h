// Conversion between Windows-1252 bytes and 16-bit characters.
//
// A document that is read as Windows-1252 consists of such bytes until its last repair. Its words
// are 16-bit characters, and a run writes Windows-1252 again.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace quorvel {

// The character of a byte. The five bytes without a character (81, 8D, 8F, 90, 9D hex) become the
// control character with the same number.
[[nodiscard]] char16_t AnsiCharacter(std::uint8_t byte);

// Decodes Windows-1252, one character for each byte, as AnsiCharacter does.
[[nodiscard]] std::u16string DecodeAnsi(std::string_view bytes);

// Appends `text` as Windows-1252 to `bytes`, one byte for each code unit. A character that
// Windows-1252 lacks becomes "?". A surrogate pair is one character.
void AppendAnsi(std::string& bytes, std::u16string_view text);

// Returns `text` as Windows-1252, with the same rules as AppendAnsi.
[[nodiscard]] std::string EncodeAnsi(std::u16string_view text);

}  // namespace quorvel
