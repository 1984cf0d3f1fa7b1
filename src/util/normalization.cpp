#include "util/normalization.h"

#include <utf8proc.h>

#include <algorithm>
#include <array>
#include <bitset>
#include <cstdint>
#include <string_view>
#include <vector>

#include "util/large_pages.h"
#include "util/utf8.h"

// A character is "unstable" here when normalization can change it or join it to the character
// before it: marks, and characters with a canonical form. All other text is copied unchanged. A
// part that is recomposed consists of a run of unstable characters and the character before the
// run, which the run may join.
//
// Marks are sorted here, not by the library, whose sort takes quadratic time in the number of
// marks.

namespace quorvel {
namespace {

using CodePoint = utf8proc_int32_t;

constexpr auto COMPOSE = static_cast<utf8proc_option_t>(UTF8PROC_STABLE | UTF8PROC_COMPOSE);
constexpr std::size_t LONGEST_DECOMPOSITION = 32;

// No character below it is unstable.
constexpr CodePoint FIRST_UNSTABLE = 0x300;

// The UTF-8 lead byte of FIRST_UNSTABLE. Characters from FIRST_UNSTABLE on have this lead byte or a
// higher one.
constexpr std::uint8_t FIRST_UNSTABLE_LEAD = 0xCC;

using Decomposition = std::array<CodePoint, LONGEST_DECOMPOSITION>;

// Returns the number of code points in `parts`.
std::size_t Decompose(CodePoint codePoint, Decomposition& parts) {
  int boundary = 0;
  const utf8proc_ssize_t length =
      utf8proc_decompose_char(codePoint, parts.data(), std::ssize(parts), COMPOSE, &boundary);
  if (length > 0 && length <= std::ssize(parts)) return static_cast<std::size_t>(length);
  parts[0] = codePoint;
  return 1;
}

int ClassOf(CodePoint codePoint) { return utf8proc_get_property(codePoint)->combining_class; }

// The set of unstable characters. It is built from the library's own table, so that both agree.
class UnstableCharacters {
 public:
  UnstableCharacters() {
    for (CodePoint vowel = 0x1161; vowel <= 0x1175; ++vowel) Add(vowel);
    for (CodePoint final = 0x11A8; final <= 0x11C2; ++final) Add(final);
    for (CodePoint codePoint = 0xC0; codePoint < END; ++codePoint) Consider(codePoint);
    // Lead bytes of four-byte sequences are all included, because characters from END on are not
    // tested.
    for (std::size_t lead = 0xF0; lead < leads_.size(); ++lead) leads_[lead] = true;
  }

  // True when an unstable character can begin with this UTF-8 byte.
  [[nodiscard]] bool MayBeginWith(char byte) const {
    return leads_[static_cast<std::uint8_t>(byte)];
  }

  [[nodiscard]] bool Hold(CodePoint codePoint) const {
    return codePoint >= END || flags_[static_cast<std::size_t>(codePoint)];
  }

 private:
  // Characters from here on are rare and all count as unstable.
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
    // When the character is stable, its last part is what can join a character before it.
    Add(composed == 1 && parts[0] == codePoint ? last : codePoint);
  }

  std::bitset<END> flags_;
  std::array<bool, 256> leads_{};
};

struct Character {
  CodePoint codePoint;
  std::size_t length;  // in bytes
};

// The character at index `place` of valid UTF-8.
inline Character CharacterOf(std::string_view text, std::size_t place) {
  const auto at = [&](std::size_t i) { return static_cast<std::uint8_t>(text[place + i]); };
  const auto more = [&](std::size_t i) { return static_cast<CodePoint>(at(i) & 0x3FU); };
  const auto lead = static_cast<CodePoint>(at(0));
  if (lead < 0x80) return {lead, 1};
  if (lead < 0xE0) return {(lead & 0x1F) << 6 | more(1), 2};
  if (lead < 0xF0) return {(lead & 0x0F) << 12 | more(1) << 6 | more(2), 3};
  return {(lead & 0x07) << 18 | more(1) << 12 | more(2) << 6 | more(3), 4};
}

// The first index from `place` on where a character at or above FIRST_UNSTABLE begins. Most texts
// have few such characters, so blocks without one are skipped whole.
std::size_t SkipSafe(std::string_view text, std::size_t place) {
  constexpr std::size_t BLOCK = 64;
  const auto isLead = [&](std::size_t i) {
    return static_cast<std::uint8_t>(text[i]) >= FIRST_UNSTABLE_LEAD;
  };
  while (place + BLOCK <= text.size()) {
    if (isLead(place)) return place;
    std::uint8_t highest = 0;
    for (std::size_t i = 0; i < BLOCK; ++i) {
      highest = std::max(highest, static_cast<std::uint8_t>(text[place + i]));
    }
    if (highest >= FIRST_UNSTABLE_LEAD) break;
    place += BLOCK;
  }
  while (place < text.size() && !isLead(place)) ++place;
  return place;
}

// Sorts the marks after each character by combining class. Marks of the same class keep their
// order.
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
  // Appends the composed form of `part`, whose two ends cannot join the surrounding text.
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
  std::vector<CodePoint> characters_;  // kept to avoid allocations
};

std::size_t PreviousCharacter(std::string_view text, std::size_t place) {
  while (place > 0) {
    --place;
    if ((static_cast<std::uint8_t>(text[place]) & 0xC0U) != 0x80) break;
  }
  return place;
}

// The first index from `place` on where an unstable character begins.
std::size_t NextUnstable(std::string_view text, std::size_t place,
                         const UnstableCharacters& unstable) {
  while ((place = SkipSafe(text, place)) < text.size()) {
    // Most alphabets have no lead byte of an unstable character.
    const std::size_t end = std::min(place + 64, text.size());
    while (place < end && !unstable.MayBeginWith(text[place])) ++place;
    if (place == end) continue;
    const Character character = CharacterOf(text, place);
    if (unstable.Hold(character.codePoint)) break;
    place += character.length;
  }
  return place;
}

// The end of the run of unstable characters that begins at index `place`.
std::size_t SkipUnstable(std::string_view text, std::size_t place,
                         const UnstableCharacters& unstable) {
  while (place < text.size()) {
    const Character character = CharacterOf(text, place);
    if (character.codePoint < FIRST_UNSTABLE || !unstable.Hold(character.codePoint)) break;
    place += character.length;
  }
  return place;
}

}  // namespace

std::string Normalized(std::string text) {
  std::size_t place = SkipSafe(text, 0);
  if (place == text.size()) return text;
  static const UnstableCharacters UNSTABLE;
  Composer composer;
  std::string normalized;
  std::size_t done = 0;
  while ((place = NextUnstable(text, place, UNSTABLE)) < text.size()) {
    const std::size_t start = PreviousCharacter(text, place);
    place = SkipUnstable(text, place, UNSTABLE);
    if (done == 0) ReserveLarge(normalized, text.size());
    normalized.append(text, done, start - done);
    composer.Append(std::string_view(text).substr(start, place - start), normalized);
    done = place;
  }
  if (done == 0) return text;
  return normalized.append(std::string_view(text).substr(done));
}

}  // namespace quorvel
