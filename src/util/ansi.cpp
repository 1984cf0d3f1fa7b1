#include "util/ansi.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "util/ascii.h"
#include "util/large_pages.h"

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

constexpr std::size_t LONGEST_SEQUENCE = 4;  // bytes

// Writes the one or two code units of the character that `bytes` begin with. `bytes` must not be
// empty. Returns the length of the character in bytes. A byte that is not UTF-8 is taken as
// Windows-1252.
std::size_t PutRareCharacter(char16_t*& out, std::string_view bytes) {
  std::uint32_t codePoint = 0;
  const std::size_t length = ReadCodePoint(bytes, codePoint);
  if (length == 0) {
    *out++ = DECODING_TABLE[static_cast<std::uint8_t>(bytes.front())];
    return 1;
  }
  if (codePoint >= 0x10000) {
    *out++ = static_cast<char16_t>(0xD800 + ((codePoint - 0x10000) >> 10U));
    codePoint = 0xDC00 + ((codePoint - 0x10000) & 0x3FFU);
  }
  *out++ = static_cast<char16_t>(codePoint);
  return length;
}

// Decodes all characters that begin at index `i` or later and before `end`. Returns the index after
// the last one. The common cases share one branch: a branch for each length would often be
// mispredicted.
std::size_t PutCodeUnits(char16_t*& out, std::string_view bytes, std::size_t i, std::size_t end) {
  while (i < end) {
    const auto first = static_cast<std::uint8_t>(bytes[i]);
    const auto second = static_cast<std::uint8_t>(i + 1 < bytes.size() ? bytes[i + 1] : '\0');
    const unsigned ascii = first < 0x80 ? 1 : 0;
    const unsigned pair = first >= 0xC2 && first < 0xE0 && (second & 0xC0U) == 0x80 ? 1 : 0;
    if ((ascii | pair) != 0) {
      const auto ch = static_cast<char16_t>((first & 0x1FU) << 6U | (second & 0x3FU));
      *out++ = ascii != 0 ? first : ch;
      i += 2 - ascii;
    } else {
      i += PutRareCharacter(out, bytes.substr(i));
    }
  }
  return i;
}

// Writes a code point as UTF-8 and returns the end of the bytes.
char* PutUtf8(char* out, char32_t codePoint) {
  const auto put = [&out](char32_t byte) { *out++ = static_cast<char>(byte); };
  if (codePoint < 0x80) {
    put(codePoint);
    return out;
  }
  if (codePoint < 0x800) {
    put(0xC0 | (codePoint >> 6U));
  } else if (codePoint < 0x10000) {
    put(0xE0 | (codePoint >> 12U));
    put(0x80 | ((codePoint >> 6U) & 0x3FU));
  } else {
    put(0xF0 | (codePoint >> 18U));
    put(0x80 | ((codePoint >> 12U) & 0x3FU));
    put(0x80 | ((codePoint >> 6U) & 0x3FU));
  }
  put(0x80 | (codePoint & 0x3FU));
  return out;
}

// The shape of a UTF-8 sequence, determined by its first byte.
struct SequenceShape {
  std::size_t length;
  std::uint32_t firstBits;
  std::uint32_t smallest;
};

SequenceShape ShapeOf(std::uint8_t first) {
  if (first < 0x80) return {1, first, 0};
  if (first >= 0xC2 && first < 0xE0) return {2, first & 0x1FU, 0x80};
  if (first >= 0xE0 && first < 0xF0) return {3, first & 0x0FU, 0x800};
  if (first >= 0xF0 && first < 0xF5) return {4, first & 0x07U, 0x10000};
  return {0, 0, 0};
}

}  // namespace

// Blocks are widened with vector instructions. Only a block with a byte that differs from its
// character is decoded byte by byte.
std::u16string DecodeAnsi(std::string_view bytes) {
  std::u16string text;
  ReserveLarge(text, bytes.size());
  std::array<char16_t, BLOCK> characters{};
  for (; !bytes.empty(); bytes.remove_prefix(std::min(BLOCK, bytes.size()))) {
    const std::string_view block = bytes.substr(0, BLOCK);
    std::uint8_t others = 0;
    for (std::size_t i = 0; i < block.size(); ++i) {
      const auto byte = static_cast<std::uint8_t>(block[i]);
      others |= static_cast<std::uint8_t>((byte & 0xE0U) == 0x80);
      characters[i] = byte;
    }
    if (others != 0) {
      for (std::size_t i = 0; i < block.size(); ++i) {
        characters[i] = DECODING_TABLE[static_cast<std::uint8_t>(block[i])];
      }
    }
    text.append(characters.data(), block.size());
  }
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

std::size_t ReadCodePoint(std::string_view bytes, std::uint32_t& codePoint) {
  const SequenceShape shape = ShapeOf(static_cast<std::uint8_t>(bytes.front()));
  if (shape.length == 0 || shape.length > bytes.size()) return 0;
  codePoint = shape.firstBits;
  for (std::size_t i = 1; i < shape.length; ++i) {
    const auto byte = static_cast<std::uint8_t>(bytes[i]);
    if ((byte & 0xC0U) != 0x80) return 0;
    codePoint = (codePoint << 6U) | (byte & 0x3FU);
  }
  const bool surrogate = codePoint >= 0xD800 && codePoint < 0xE000;
  const bool valid = codePoint >= shape.smallest && codePoint <= 0x10FFFF && !surrogate;
  return valid ? shape.length : 0;
}

// Blocks of ASCII are widened at once. Most of the other characters have two bytes.
std::u16string DecodeUtf8(std::string_view bytes) {
  std::u16string text;
  ReserveLarge(text, bytes.size());
  std::array<char16_t, BLOCK + 1> characters{};
  for (std::size_t i = 0; i < bytes.size();) {
    char16_t* out = characters.data();
    const std::string_view block = bytes.substr(i, BLOCK);
    const std::size_t end = i + block.size();
    if (block.size() == BLOCK && IsAscii(block)) {
      for (const char byte : block) *out++ = static_cast<std::uint8_t>(byte);
      i = end;
    }
    i = PutCodeUnits(out, bytes, i, end);
    text.append(characters.data(), static_cast<std::size_t>(out - characters.data()));
  }
  return text;
}

void AppendUtf8(std::string& bytes, char32_t codePoint) {
  std::array<char, LONGEST_SEQUENCE> sequence{};
  bytes.append(sequence.begin(), PutUtf8(sequence.data(), codePoint));
}

// ASCII is narrowed 16 units at a time.
void AppendUtf8(std::string& bytes, std::u16string_view text) {
  constexpr std::size_t STEP = 16;
  std::array<char, 3 * BLOCK + LONGEST_SEQUENCE> block{};
  for (std::size_t i = 0; i < text.size();) {
    char* out = block.data();
    for (const std::size_t end = std::min(i + BLOCK, text.size()); i < end;) {
      const std::u16string_view units = text.substr(i, STEP);
      if (units.size() == STEP && IsAscii(units)) {
        out = std::copy(units.begin(), units.end(), out);
        i += STEP;
      } else {
        for (const std::size_t stop = i + units.size(); i < stop;) {
          out = PutUtf8(out, NextCodePoint(text, i));
        }
      }
    }
    bytes.append(block.begin(), out);
  }
}

std::string EncodeUtf8(std::u16string_view text) {
  std::string bytes;
  bytes.reserve(text.size());
  AppendUtf8(bytes, text);
  return bytes;
}

char32_t NextCodePoint(std::u16string_view text, std::size_t& place) {
  constexpr char32_t REPLACEMENT = 0xFFFD;
  const char16_t first = text[place++];
  if (!IsHighSurrogate(first)) return IsLowSurrogate(first) ? REPLACEMENT : first;
  if (place == text.size() || !IsLowSurrogate(text[place])) return REPLACEMENT;
  return 0x10000 + ((first - char32_t{0xD800}) << 10U) + (text[place++] - char32_t{0xDC00});
}

void AppendCodePoint(std::u16string& text, char32_t codePoint) {
  if (codePoint < 0x10000) {
    text += static_cast<char16_t>(codePoint);
  } else {
    text += static_cast<char16_t>(0xD800 + ((codePoint - 0x10000) >> 10U));
    text += static_cast<char16_t>(0xDC00 + ((codePoint - 0x10000) & 0x3FFU));
  }
}

std::string CharacterAt(std::u16string_view text, std::size_t place) {
  const bool isPair = IsHighSurrogate(text[place]) && place + 1 < text.size();
  return EncodeUtf8(text.substr(place, isPair ? 2 : 1));
}

std::string LowerAscii(std::string_view text) {
  std::string lower(text);
  for (char& ch : lower) {
    if (ch >= 'A' && ch <= 'Z') ch = static_cast<char>(ch - 'A' + 'a');
  }
  return lower;
}

std::string_view TrimBlanks(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

}  // namespace quorvel
