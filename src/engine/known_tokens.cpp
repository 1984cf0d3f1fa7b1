#include "engine/known_tokens.h"

#include <algorithm>
#include <cstring>

#include "engine/tokenizer.h"
#include "util/text_hash.h"

namespace quorvel {
namespace {

constexpr std::size_t END = sizeof(std::uint64_t) / sizeof(char16_t);

// Longer tokens are rare, and hardly ever come up again.
constexpr std::size_t LONGEST_KEPT = 64;

template <std::size_t COUNT>
std::uint64_t CharactersAt(const char16_t* place) {
  std::uint64_t characters = 0;
  std::memcpy(&characters, place, COUNT * sizeof(char16_t));
  return characters;
}

}  // namespace

KnownTokens::Spelling KnownTokens::SpellingOf(std::size_t begin, std::size_t length) const {
  const char16_t* const token = text_.data() + begin;
  const auto size = static_cast<std::uint32_t>(length);
  static_assert(MIN_WORD_LENGTH == END - 1);
  if (length < END) return {CharactersAt<MIN_WORD_LENGTH>(token), 0, size};
  return {CharactersAt<END>(token), CharactersAt<END>(token + length - END), size};
}

// Where the search for a spelling starts.
std::size_t KnownTokens::FirstPlaceOf(const Spelling& spelling, std::size_t begin) const {
  const std::uint32_t hash = spelling.length <= 2 * END
                                 ? HashOf(spelling.front, spelling.back)
                                 : HashOf(text_.substr(begin, spelling.length));
  return hash & (slots_.size() - 1);
}

bool KnownTokens::Holds(const Slot& slot, const Spelling& spelling, std::size_t begin) const {
  return slot.spelling == spelling &&
         (spelling.length <= 2 * END ||
          text_.substr(slot.begin, spelling.length) == text_.substr(begin, spelling.length));
}

TokenMeaning KnownTokens::MeaningOf(std::size_t begin, std::size_t length) {
  if (length > LONGEST_KEPT) return LookInto(text_.substr(begin, length));
  if (2 * (used_ + 1) > slots_.size()) Grow();
  const Spelling spelling = SpellingOf(begin, length);
  const std::size_t mask = slots_.size() - 1;
  std::size_t place = FirstPlaceOf(spelling, begin);
  for (; slots_[place].spelling.length != 0; place = (place + 1) & mask) {
    if (Holds(slots_[place], spelling, begin)) return slots_[place].meaning;
  }
  const TokenMeaning meaning = LookInto(text_.substr(begin, length));
  slots_[place] = {spelling, static_cast<std::uint32_t>(begin), meaning};
  ++used_;
  return meaning;
}

TokenMeaning KnownTokens::LookInto(std::u16string_view token) {
  const std::u16string_view word = WordOfToken(token);
  if (!MayEnterTable(word)) return {};
  return {EntryOf(table_, word), static_cast<std::int32_t>(word.size())};
}

void KnownTokens::Grow() {
  constexpr std::size_t FIRST_SIZE = 4096;
  std::vector<Slot> old(std::max(FIRST_SIZE, 2 * slots_.size()));
  old.swap(slots_);
  const std::size_t mask = slots_.size() - 1;
  for (const Slot& slot : old) {
    if (slot.spelling.length == 0) continue;
    std::size_t place = FirstPlaceOf(slot.spelling, slot.begin);
    while (slots_[place].spelling.length != 0) place = (place + 1) & mask;
    slots_[place] = slot;
  }
}

}  // namespace quorvel
