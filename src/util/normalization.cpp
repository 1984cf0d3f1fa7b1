#include "util/normalization.h"

#include <utf8proc.h>

#include <algorithm>
#include <array>
#include <bitset>
#include <cstdint>
#include <string_view>
#include <vector>

#include "util/ansi.h"
#include "util/large_pages.h"

// A character changes, or joins one before it, only when it is a mark or has another form: these
// are the doubtful ones. Everything between them is copied as it is; what is composed anew is a
// doubtful character with those around it that are doubtful too and the one before, which they may
// join.
//
// The order of the marks is made here and not by the library, which takes the square of their
// number.

namespace quorvel {
namespace {

using CodePoint = utf8proc_int32_t;

constexpr auto COMPOSE = static_cast<utf8proc_option_t>(UTF8PROC_STABLE | UTF8PROC_COMPOSE);
constexpr std::size_t LONGEST_DECOMPOSITION = 32;

// No character below it is doubtful.
constexpr CodePoint FIRST_DOUBTFUL = 0x300;

// From this byte on a first byte of UTF-8 begins one of those from FIRST_DOUBTFUL on.
constexpr std::uint8_t FIRST_DOUBTFUL_LEAD = 0xCC;

using Decomposition = std::array<CodePoint, LONGEST_DECOMPOSITION>;

// Gives its length.
std::size_t Decompose(CodePoint codePoint, Decomposition& parts) {
  int boundary = 0;
  const utf8proc_ssize_t length =
      utf8proc_decompose_char(codePoint, parts.data(), std::ssize(parts), COMPOSE, &boundary);
  if (length > 0 && length <= std::ssize(parts)) return static_cast<std::size_t>(length);
  parts[0] = codePoint;
  return 1;
}

int ClassOf(CodePoint codePoint) { return utf8proc_get_property(codePoint)->combining_class; }

// Which characters are doubtful, by the library's own table, so that both know the same characters.
class DoubtfulCharacters {
 public:
  DoubtfulCharacters() {
    for (CodePoint vowel = 0x1161; vowel <= 0x1175; ++vowel) Add(vowel);
    for (CodePoint final = 0x11A8; final <= 0x11C2; ++final) Add(final);
    for (CodePoint codePoint = 0xC0; codePoint < END; ++codePoint) Consider(codePoint);
    // And those that are doubtful without being looked at.
    for (std::size_t lead = 0xF0; lead < leads_.size(); ++lead) leads_[lead] = true;
  }

  // Of a byte of UTF-8.
  [[nodiscard]] bool MayBeginWith(char byte) const {
    return leads_[static_cast<std::uint8_t>(byte)];
  }

  [[nodiscard]] bool Hold(CodePoint codePoint) const {
    return codePoint >= END || flags_[static_cast<std::size_t>(codePoint)];
  }

 private:
  // What comes from here on is rare and counts as doubtful.
  static constexpr CodePoint END = 0x30000;

  void Add(CodePoint codePoint) {
    flags_[static_cast<std::size_t>(codePoint)] = true;
    std::string utf8;
    AppendUtf8(utf8, static_cast<char32_t>(codePoint));
    leads_[static_cast<std::uint8_t>(utf8.front())] = true;
  }

  void Consider(CodePoint codePoint) {
    const utf8proc_property_t& property = *utf8proc_get_property(codePoint);
    if (property.combining_class != 0) Add(codePoint);
    if (property.decomp_seqindex == UINT16_MAX || property.decomp_type != 0) return;
    Decomposition parts;
    const std::size_t length = Decompose(codePoint, parts);
    const CodePoint last = parts[length - 1];
    const utf8proc_ssize_t composed =
        utf8proc_normalize_utf32(parts.data(), static_cast<utf8proc_ssize_t>(length), COMPOSE);
    // Of the others the last part is what joins the one before it.
    Add(composed == 1 && parts[0] == codePoint ? last : codePoint);
  }

  std::bitset<END> flags_;
  std::array<bool, 256> leads_{};
};

struct Character {
  CodePoint codePoint;
  std::size_t length;  // in bytes
};

// The character at a place of valid UTF-8.
inline Character CharacterOf(std::string_view text, std::size_t place) {
  const auto at = [&](std::size_t i) { return static_cast<std::uint8_t>(text[place + i]); };
  const auto more = [&](std::size_t i) { return static_cast<CodePoint>(at(i) & 0x3FU); };
  const auto lead = static_cast<CodePoint>(at(0));
  if (lead < 0x80) return {lead, 1};
  if (lead < 0xE0) return {(lead & 0x1F) << 6 | more(1), 2};
  if (lead < 0xF0) return {(lead & 0x0F) << 12 | more(1) << 6 | more(2), 3};
  return {(lead & 0x07) << 18 | more(1) << 12 | more(2) << 6 | more(3), 4};
}

// The first place from `place` on where a character from FIRST_DOUBTFUL on begins. Most texts have
// few of them, so blocks without one are passed at once.
std::size_t SkipSafe(std::string_view text, std::size_t place) {
  constexpr std::size_t BLOCK = 64;
  const auto isLead = [&](std::size_t i) {
    return static_cast<std::uint8_t>(text[i]) >= FIRST_DOUBTFUL_LEAD;
  };
  while (place + BLOCK <= text.size()) {
    if (isLead(place)) return place;
    std::uint8_t highest = 0;
    for (std::size_t i = 0; i < BLOCK; ++i) {
      highest = std::max(highest, static_cast<std::uint8_t>(text[place + i]));
    }
    if (highest >= FIRST_DOUBTFUL_LEAD) break;
    place += BLOCK;
  }
  while (place < text.size() && !isLead(place)) ++place;
  return place;
}

// Brings the marks behind each character into their one order; those of a class stay as they are.
void OrderMarks(std::vector<CodePoint>& characters) {
  const auto isMark = [](CodePoint one) { return ClassOf(one) != 0; };
  const auto before = [](CodePoint one, CodePoint other) { return ClassOf(one) < ClassOf(other); };
  for (auto place = characters.begin(); place != characters.end();) {
    const auto first = std::find_if(place, characters.end(), isMark);
    place = std::find_if_not(first, characters.end(), isMark);
    if (!std::is_sorted(first, place, before)) std::stable_sort(first, place, before);
  }
}

class Composer {
 public:
  // Appends the composed form of a part that begins and ends between two that cannot join.
  void Append(std::string_view part, std::string& text) {
    characters_.clear();
    Decomposition parts;
    for (std::size_t place = 0; place < part.size();) {
      const Character character = CharacterOf(part, place);
      const std::size_t length = Decompose(character.codePoint, parts);
      characters_.insert(characters_.end(), parts.begin(),
                         parts.begin() + static_cast<std::ptrdiff_t>(length));
      place += character.length;
    }
    OrderMarks(characters_);
    const utf8proc_ssize_t length =
        utf8proc_normalize_utf32(characters_.data(), std::ssize(characters_), COMPOSE);
    for (utf8proc_ssize_t i = 0; i < length; ++i) {
      AppendUtf8(text, static_cast<std::uint32_t>(characters_[static_cast<std::size_t>(i)]));
    }
  }

 private:
  std::vector<CodePoint> characters_;  // used again and again
};

std::size_t PreviousCharacter(std::string_view text, std::size_t place) {
  while (place > 0) {
    --place;
    if ((static_cast<std::uint8_t>(text[place]) & 0xC0U) != 0x80) break;
  }
  return place;
}

// The first place from `place` on where a doubtful character begins.
std::size_t NextDoubtful(std::string_view text, std::size_t place,
                         const DoubtfulCharacters& doubtful) {
  while ((place = SkipSafe(text, place)) < text.size()) {
    // Whole alphabets have no first byte of a doubtful character.
    const std::size_t end = std::min(place + 64, text.size());
    while (place < end && !doubtful.MayBeginWith(text[place])) ++place;
    if (place == end) continue;
    const Character character = CharacterOf(text, place);
    if (doubtful.Hold(character.codePoint)) break;
    place += character.length;
  }
  return place;
}

// The end of the doubtful characters from `place` on.
std::size_t SkipDoubtful(std::string_view text, std::size_t place,
                         const DoubtfulCharacters& doubtful) {
  while (place < text.size()) {
    const Character character = CharacterOf(text, place);
    if (character.codePoint < FIRST_DOUBTFUL || !doubtful.Hold(character.codePoint)) break;
    place += character.length;
  }
  return place;
}

}  // namespace

std::string Normalized(std::string text) {
  std::size_t place = SkipSafe(text, 0);
  if (place == text.size()) return text;
  static const DoubtfulCharacters DOUBTFUL;
  Composer composer;
  std::string normalized;
  std::size_t done = 0;
  while ((place = NextDoubtful(text, place, DOUBTFUL)) < text.size()) {
    const std::size_t start = PreviousCharacter(text, place);
    place = SkipDoubtful(text, place, DOUBTFUL);
    if (done == 0) ReserveLarge(normalized, text.size());
    normalized.append(text, done, start - done);
    composer.Append(std::string_view(text).substr(start, place - start), normalized);
    done = place;
  }
  if (done == 0) return text;
  return normalized.append(std::string_view(text).substr(done));
}

}  // namespace quorvel
