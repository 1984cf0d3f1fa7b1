#include "util/utf8.h"

#include <algorithm>
#include <array>

#include "util/ansi.h"
#include "util/ascii.h"
#include "util/large_pages.h"

namespace quorvel {
namespace {

// The number of characters converted at a time, in a small buffer.
constexpr std::size_t UTF8_BLOCK = 64;

constexpr std::size_t LONGEST_SEQUENCE = 4;  // bytes

// Writes the one or two code units of the character that `bytes` begin with. `bytes` must not be
// empty. Returns the length of the character in bytes. A byte that is not UTF-8 is taken as
// Windows-1252.
std::size_t PutRareCharacter(char16_t*& out, std::string_view bytes) {
  std::uint32_t codePoint = 0;
  const std::size_t length = ReadCodePoint(bytes, codePoint);
  if (length == 0) {
    *out++ = AnsiCharacter(static_cast<std::uint8_t>(bytes.front()));
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

// Blocks of ASCII are widened at once. Most of the other characters have two bytes. A character of
// two code units that begins at the end of a block needs one more.
std::u16string DecodeUtf8(std::string_view bytes) {
  std::u16string text;
  ReserveLarge(text, bytes.size());
  std::array<char16_t, 16 * UTF8_BLOCK> characters{};
  const char16_t* const full = characters.data() + characters.size() - UTF8_BLOCK;
  char16_t* out = characters.data();
  for (std::size_t i = 0; i < bytes.size();) {
    const std::size_t end = std::min(i + UTF8_BLOCK, bytes.size());
    if (end - i == UTF8_BLOCK && IsAscii(std::string_view(&bytes[i], UTF8_BLOCK))) {
      for (std::size_t k = 0; k < UTF8_BLOCK; ++k) out[k] = static_cast<std::uint8_t>(bytes[i + k]);
      out += UTF8_BLOCK;
      i = end;
    } else {
      i = PutCodeUnits(out, bytes, i, end);
    }
    if (out < full && i < bytes.size()) continue;
    text.append(characters.data(), out);
    out = characters.data();
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
  std::array<char, 3 * UTF8_BLOCK + LONGEST_SEQUENCE> block{};
  for (std::size_t i = 0; i < text.size();) {
    char* out = block.data();
    for (const std::size_t end = std::min(i + UTF8_BLOCK, text.size()); i < end;) {
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

}  // namespace quorvel
