#include "unicode/decoding.h"

#include <algorithm>
#include <array>

#include "util/ansi.h"
#include "util/ascii.h"
#include "util/large_pages.h"
#include "util/utf8.h"

namespace quorvel {
namespace {

constexpr std::string_view REPLACEMENT = "\xEF\xBF\xBD";

// The length of a UTF-8 sequence and the range of its second byte, determined by its first byte.
struct LeadByte {
  std::size_t length;
  std::uint8_t lowest;
  std::uint8_t highest;
};

constexpr LeadByte LeadByteOf(std::uint8_t byte) {
  if (byte < 0x80) return {1, 0, 0};
  if (byte < 0xC2 || byte > 0xF4) return {0, 0, 0};
  if (byte < 0xE0) return {2, 0x80, 0xBF};
  // These ranges exclude overlong forms, surrogates and code points above 10FFFF hex.
  if (byte == 0xE0) return {3, 0xA0, 0xBF};
  if (byte == 0xED) return {3, 0x80, 0x9F};
  if (byte < 0xF0) return {3, 0x80, 0xBF};
  if (byte == 0xF0) return {4, 0x90, 0xBF};
  return {4, 0x80, static_cast<std::uint8_t>(byte == 0xF4 ? 0x8F : 0xBF)};
}

// The sequence at the front of some bytes: one valid character, or bytes to be replaced.
struct Sequence {
  std::size_t length;
  bool isValid;
};

Sequence SequenceAt(std::string_view bytes) {
  const LeadByte lead = LeadByteOf(static_cast<std::uint8_t>(bytes.front()));
  if (lead.length == 0) return {1, false};
  const std::size_t end = std::min(lead.length, bytes.size());
  for (std::size_t i = 1; i < end; ++i) {
    const auto byte = static_cast<std::uint8_t>(bytes[i]);
    const bool fits = i == 1 ? byte >= lead.lowest && byte <= lead.highest : (byte >> 6U) == 2;
    if (!fits) return {i, false};
  }
  return {end, end == lead.length};
}

// The first index from `place` on with a byte that is not ASCII.
std::size_t SkipAscii(std::string_view bytes, std::size_t place) {
  return place + AsciiLength(bytes.substr(place));
}

// Skips characters of two bytes, which whole alphabets consist of, and single ASCII characters
// between them. Returns the number of two-byte characters. Both cases share one branch: a branch
// for each length would often be mispredicted.
std::int64_t SkipPairs(std::string_view bytes, std::size_t& place) {
  constexpr std::size_t STEPS = 32;
  std::int64_t pairs = 0;
  while (place + 2 * STEPS < bytes.size() && !AreEightAscii(&bytes[place])) {
    for (std::size_t step = 0; step < STEPS; ++step) {
      const auto lead = static_cast<std::uint8_t>(bytes[place]);
      const auto next = static_cast<std::uint8_t>(bytes[place + 1]);
      const unsigned ascii = lead < 0x80 ? 1 : 0;
      const unsigned pair = lead >= 0xC2 && lead < 0xE0 && (next & 0xC0U) == 0x80 ? 1 : 0;
      if ((ascii | pair) == 0) return pairs;
      place += 2 - ascii;
      pairs += pair;
    }
  }
  return pairs;
}

struct Utf8Counts {
  std::int64_t characters = 0;    // characters of several bytes
  std::int64_t wrongBytes = 0;    // bytes that are not valid UTF-8
  std::int64_t replacements = 0;  // U+FFFD needed for them
};

Utf8Counts CountUtf8(std::string_view bytes) {
  Utf8Counts counts;
  for (std::size_t place = SkipAscii(bytes, 0); place < bytes.size();) {
    counts.characters += SkipPairs(bytes, place);
    place = SkipAscii(bytes, place);
    if (place == bytes.size()) break;
    const Sequence sequence = SequenceAt(bytes.substr(place));
    place += sequence.length;
    if (sequence.isValid) {
      ++counts.characters;
    } else {
      ++counts.replacements;
      counts.wrongBytes += static_cast<std::int64_t>(sequence.length);
    }
    place = SkipAscii(bytes, place);
  }
  return counts;
}

Utf8Text FromUtf8(std::string_view bytes, std::int64_t replacements) {
  Utf8Text utf8{{}, replacements};
  ReserveLarge(utf8.text, bytes.size() + 2 * static_cast<std::size_t>(replacements));
  std::size_t copied = 0;
  for (std::size_t place = 0; replacements > 0 && place < bytes.size();) {
    const Sequence sequence = SequenceAt(bytes.substr(place));
    if (!sequence.isValid) {
      utf8.text.append(bytes, copied, place - copied).append(REPLACEMENT);
      copied = place + sequence.length;
    }
    place += sequence.length;
  }
  utf8.text += bytes.substr(copied);
  return utf8;
}

std::uint32_t UnitAt(std::string_view bytes, std::size_t place, Charset charset) {
  const std::uint32_t first = static_cast<std::uint8_t>(bytes[place]);
  const std::uint32_t second = static_cast<std::uint8_t>(bytes[place + 1]);
  const bool isLittle = charset == Charset::utf16LittleEndian;
  return isLittle ? first | second << 8U : first << 8U | second;
}

Utf8Text FromUtf16(std::string_view bytes, Charset charset) {
  Utf8Text utf8;
  ReserveLarge(utf8.text, bytes.size());
  std::size_t place = 0;
  for (; place + 2 <= bytes.size(); place += 2) {
    std::uint32_t codePoint = UnitAt(bytes, place, charset);
    const bool isSurrogate = (codePoint & 0xF800U) == 0xD800;
    const std::uint32_t next =
        isSurrogate && place + 4 <= bytes.size() ? UnitAt(bytes, place + 2, charset) : 0;
    if (isSurrogate && codePoint < 0xDC00 && (next & 0xFC00U) == 0xDC00) {
      codePoint = 0x10000 + ((codePoint - 0xD800) << 10U) + (next - 0xDC00);
      place += 2;
    } else if (isSurrogate) {
      codePoint = 0xFFFD;
      ++utf8.replaced;
    }
    AppendUtf8(utf8.text, codePoint);
  }
  if (place < bytes.size()) {
    utf8.text += REPLACEMENT;
    ++utf8.replaced;
  }
  return utf8;
}

std::string FromIso885915(std::string_view bytes) {
  std::u16string text = DecodeAnsi(bytes);
  constexpr std::u16string_view WINDOWS = u"\u00A4\u00A6\u00A8\u00B4\u00B8\u00BC\u00BD\u00BE";
  constexpr std::u16string_view ISO = u"\u20AC\u0160\u0161\u017D\u017E\u0152\u0153\u0178";
  for (char16_t& ch : text) {
    const std::size_t place = WINDOWS.find(ch);
    if (place != std::u16string_view::npos) ch = ISO[place];
  }
  return EncodeUtf8(text);
}

}  // namespace

std::optional<CharsetMark> CharsetMarkOf(std::string_view bytes) {
  using namespace std::string_view_literals;
  struct Mark {
    std::string_view bytes;
    Charset charset;
  };
  // Of marks with the same beginning, the longer one comes first.
  constexpr std::array MARKS = {
      Mark{"\xFF\xFE\0\0"sv, Charset::utf32}, Mark{"\0\0\xFE\xFF"sv, Charset::utf32},
      Mark{BYTE_ORDER_MARK, Charset::utf8}, Mark{"\xFF\xFE"sv, Charset::utf16LittleEndian},
      Mark{"\xFE\xFF"sv, Charset::utf16BigEndian}};
  for (const Mark& mark : MARKS) {
    if (bytes.starts_with(mark.bytes)) return CharsetMark{mark.charset, mark.bytes.size()};
  }
  return std::nullopt;
}

Utf8Text Decode(std::string_view bytes, Charset charset) {
  switch (charset) {
    case Charset::utf8:
      return FromUtf8(bytes, CountUtf8(bytes).replacements);
    case Charset::utf16LittleEndian:
    case Charset::utf16BigEndian:
      return FromUtf16(bytes, charset);
    case Charset::iso885915:
      return {FromIso885915(bytes)};
    case Charset::utf32:
    case Charset::windows1252:
      break;
  }
  return {EncodeUtf8(DecodeAnsi(bytes))};
}

Utf8Text TextOfBytes(std::string_view bytes) {
  if (const std::optional<CharsetMark> mark = CharsetMarkOf(bytes)) {
    return Decode(bytes.substr(mark->length), mark->charset);
  }
  const Utf8Counts counts = CountUtf8(bytes);
  const bool isUtf8 = counts.wrongBytes == 0 || counts.characters > counts.wrongBytes;
  return isUtf8 ? FromUtf8(bytes, counts.replacements) : Decode(bytes, Charset::windows1252);
}

}  // namespace quorvel
