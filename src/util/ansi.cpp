#include "util/ansi.h"

#include <algorithm>
#include <array>

#include "util/append_blocks.h"
#include "util/large_pages.h"
#include "util/utf8.h"

namespace quorvel {
namespace {

// The characters of the bytes 80 to 9F hex. Every other byte equals its character.
constexpr std::array<char16_t, 32> HIGH_CONTROLS = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

constexpr std::array<char16_t, 256> MakeDecodingTable() {
  std::array<char16_t, 256> table{};
  for (std::size_t byte = 0; byte < table.size(); ++byte) {
    const bool special = byte >= 0x80 && byte < 0xA0;
    table[byte] = special ? HIGH_CONTROLS[byte - 0x80] : static_cast<char16_t>(byte);
  }
  return table;
}

constexpr std::array<char16_t, 256> DECODING_TABLE = MakeDecodingTable();

bool IsItsOwnByte(char16_t ch) { return ch < 0x100 && (ch & 0xE0U) != 0x80; }

char AnsiByteOf(char16_t ch) {
  if (IsItsOwnByte(ch)) return static_cast<char>(ch);
  const auto place = std::find(HIGH_CONTROLS.begin(), HIGH_CONTROLS.end(), ch);
  if (place == HIGH_CONTROLS.end()) return '?';
  return static_cast<char>(0x80 + (place - HIGH_CONTROLS.begin()));
}

// The number of characters converted at a time. Each block is converted in a small buffer and then
// appended, because growing the text first would fill it with zeros for nothing.
constexpr std::size_t BLOCK = 64;

// Widens characters with vector instructions. Only a block with a byte that differs from its
// character is decoded byte by byte.
void DecodeBlock(const char* bytes, std::size_t length, char16_t* to) {
  std::uint8_t others = 0;
  for (std::size_t i = 0; i < length; ++i) {
    const auto byte = static_cast<std::uint8_t>(bytes[i]);
    others |= static_cast<std::uint8_t>((byte & 0xE0U) == 0x80);
    to[i] = byte;
  }
  if (others == 0) return;
  for (std::size_t i = 0; i < length; ++i) {
    to[i] = AnsiCharacter(static_cast<std::uint8_t>(bytes[i]));
  }
}

// Encodes `length` characters of `text`, or one more when a surrogate pair crosses the end of the
// block. Returns the number of characters consumed.
std::size_t EncodeBlock(std::u16string_view text, std::size_t length, std::string& bytes) {
  std::size_t taken = 0;
  for (; taken < length; ++taken) {
    const bool pair =
        IsHighSurrogate(text[taken]) && taken + 1 < text.size() && IsLowSurrogate(text[taken + 1]);
    bytes += AnsiByteOf(text[taken]);
    if (pair) ++taken;
  }
  return taken;
}

}  // namespace

char16_t AnsiCharacter(std::uint8_t byte) { return DECODING_TABLE[byte]; }

std::u16string DecodeAnsi(std::string_view bytes) {
  std::u16string text;
  ReserveLarge(text, bytes.size());
  AppendInBlocks(text, bytes, DecodeBlock);
  return text;
}

// Nearly all characters equal their byte. Blocks of such characters are narrowed with vector
// instructions; any other block is encoded character by character.
void AppendAnsi(std::string& bytes, std::u16string_view text) {
  std::array<char, BLOCK> block{};
  while (!text.empty()) {
    const std::size_t length = std::min(BLOCK, text.size());
    std::uint16_t others = 0;
    for (std::size_t i = 0; i < length; ++i) {
      others |= static_cast<std::uint16_t>(!IsItsOwnByte(text[i]));
      block[i] = static_cast<char>(text[i]);
    }
    if (others == 0) {
      bytes.append(block.data(), length);
      text.remove_prefix(length);
    } else {
      text.remove_prefix(EncodeBlock(text, length, bytes));
    }
  }
}

std::string EncodeAnsi(std::u16string_view text) {
  std::string bytes;
  ReserveLarge(bytes, text.size());
  AppendAnsi(bytes, text);
  return bytes;
}

}  // namespace quorvel
