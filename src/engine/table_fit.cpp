#include "engine/table_fit.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <string>

#include "engine/tokenizer.h"

// At nearly every position the word stands as it is spelled, between two non-word characters. That
// takes one comparison to check. Otherwise (a plural "s" or a hyphen was dropped, or the text ends
// there) the token is cut out of the text again.

namespace quorvel {
namespace {

// The maximum length of a token that gives a word. A word has at most 30 characters; the token can
// also have a plural "s" and a few hyphens, because double hyphens are blanked.
constexpr std::size_t LONGEST_TOKEN = 64;

// True when a token with this spelling gives itself as its word. "1990" and "TV-" are words only
// where a plural "s" was dropped ("1990s", "TV-s").
bool GivesItself(const std::u16string& word, const Alphabet& alphabet) {
  Position position = FIRST_POSITION;
  return GetWord(word + u" ", alphabet, position) == word;
}

// True when the token that ends at this occurrence gives the word.
bool TokenGivesWord(std::u16string_view text, Position position, std::u16string_view word,
                    const Alphabet& alphabet) {
  const Position scanEnd = position + word.size();
  const std::size_t end = std::min(IndexOf(scanEnd), text.size());  // of the token
  std::size_t start = end;
  while (start > 0 && end - start <= LONGEST_TOKEN && alphabet.IsWordCharacterAt(text, start - 1)) {
    --start;
  }
  Position scanPosition = PositionOf(start);
  return start < end && GetWord(text, alphabet, scanPosition) == word && scanPosition == scanEnd;
}

// Compares one word with the text at many positions.
class Spelling {
 public:
  Spelling(std::u16string_view word, const Alphabet& alphabet) : word_(word), alphabet_(alphabet) {
    std::array<char16_t, UNITS> mask{};
    std::fill_n(mask.begin(), std::min(UNITS, word.size()), char16_t{0xFFFF});
    std::memcpy(&mask_, mask.data(), sizeof(mask_));
    std::copy_n(word.begin(), std::min(UNITS, word.size()), mask.begin());
    std::memcpy(&front_, mask.data(), sizeof(front_));
    front_ &= mask_;
  }

  // True when the word stands at the 0-based index `start` of `text`, between non-word characters.
  [[nodiscard]] bool StandsAt(std::u16string_view text, std::size_t start) const {
    const std::size_t end = start + word_.size();
    if (end >= text.size()) return false;
    static_assert(UNITS <= MIN_WORD_LENGTH + 1);  // so many code units can be read there
    std::uint64_t there = 0;
    std::memcpy(&there, text.data() + start, sizeof(there));
    if ((there & mask_) != front_ || alphabet_.IsWordCharacterAt(text, end)) return false;
    if (start > 0 && alphabet_.IsWordCharacterAt(text, start - 1)) return false;
    return word_.size() <= UNITS ||
           text.substr(start + UNITS, word_.size() - UNITS) == word_.substr(UNITS);
  }

 private:
  static constexpr std::size_t UNITS = sizeof(std::uint64_t) / sizeof(char16_t);

  std::u16string_view word_;
  const Alphabet& alphabet_;
  std::uint64_t front_ = 0;  // the first code units; one comparison decides most positions
  std::uint64_t mask_ = 0;
};

// Prefetches the text at a position, which may be beyond the end. Words in alphabetical order are
// scattered over the whole text.
void Prefetch(std::u16string_view text, Position position) {
  __builtin_prefetch(text.data() + std::min(IndexOf(position), text.size()));
}

bool WordFits(const WordEntry& entry, bool included, std::u16string_view text,
              const Alphabet& alphabet) {
  constexpr std::size_t AHEAD = 8;
  const std::vector<Position>& positions = entry.positions;
  const Spelling spelling(entry.word, alphabet);
  const bool givesItself = GivesItself(entry.word, alphabet);
  const std::size_t step = included ? 1 : std::max<std::size_t>(positions.size() - 1, 1);
  for (std::size_t k = 0; k < positions.size(); k += step) {
    if (k + AHEAD < positions.size()) Prefetch(text, positions[k + AHEAD]);
    if (givesItself && spelling.StandsAt(text, IndexOf(positions[k]))) continue;
    if (!TokenGivesWord(text, positions[k], entry.word, alphabet)) return false;
  }
  return true;
}

// True when the scan would record a word at `position` or later.
bool HoldsWord(std::u16string_view text, Position position, const Alphabet& alphabet) {
  while (IndexOf(position) < text.size()) {
    if (alphabet.IsWordCharacterAt(text, IndexOf(position))) {
      if (MayEnterTable(GetWord(text, alphabet, position))) return true;
    } else {
      position = position + 1;
    }
  }
  return false;
}

}  // namespace

bool TableFitsText(const WordTable& table, const IncludeFlags& include, std::u16string_view text,
                   const Alphabet& alphabet) {
  constexpr std::size_t AHEAD = 16;
  if (table.positionWidth != PositionWidth(text.size())) return false;
  Position lastEnd = FIRST_POSITION;
  for (std::size_t i = 0; i < table.entries.size(); ++i) {
    if (i + AHEAD < table.entries.size()) {
      Prefetch(text, table.entries[i + AHEAD].positions.front());
      Prefetch(text, table.entries[i + AHEAD].positions.back());
    }
    const WordEntry& entry = table.entries[i];
    if (!MayEnterTable(entry.word) || !WordFits(entry, include[i], text, alphabet)) return false;
    lastEnd = std::max(lastEnd, entry.positions.back() + entry.word.size());
  }
  return !HoldsWord(text, lastEnd, alphabet);
}

}  // namespace quorvel
