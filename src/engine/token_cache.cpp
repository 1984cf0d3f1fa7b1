#include "engine/token_cache.h"

#include <cstring>

#include "engine/tokenizer.h"
#include "util/text_hash.h"

namespace quorvel {
namespace {

constexpr std::size_t END = sizeof(std::uint64_t) / sizeof(char16_t);

constexpr std::size_t FIRST_SLOTS = 4096;

// Longer tokens are rare and hardly ever repeated, so they are not cached.
constexpr std::size_t LONGEST_KEPT = 64;

std::uint64_t FourAt(const char16_t* place) {
  std::uint64_t characters = 0;
  std::memcpy(&characters, place, sizeof(characters));
  return characters;
}

std::uint64_t ThreeAt(const char16_t* place) {
  return place[0] | std::uint64_t{place[1]} << 16U | std::uint64_t{place[2]} << 32U;
}

}  // namespace

TokenCache::TokenCache(std::u16string_view text, const Alphabet& alphabet, WordTable& table,
                       const KeywordLists* sought, const HashSeed& seed)
    : text_(text),
      alphabet_(alphabet),
      table_(table),
      sought_(sought),
      seed_(seed),
      slots_(FIRST_SLOTS) {}

TokenKey TokenCache::KeyOf(std::size_t begin, std::size_t length) const {
  static_assert(MIN_WORD_LENGTH == END - 1);
  const char16_t* const token = text_.data() + begin;
  TokenKey key;
  key.front = length < END ? ThreeAt(token) : FourAt(token);
  key.back = length < END ? 0 : FourAt(token + length - END);
  key.begin = static_cast<std::uint32_t>(begin);
  key.length = static_cast<std::uint32_t>(length);
  if (length <= 2 * END) {
    key.hash = HashOf(key.front, key.back, seed_);
  } else if (length <= LONGEST_KEPT) {
    key.hash = HashOf(text_.substr(begin, length), seed_);
  }
  __builtin_prefetch(&slots_[key.hash & (slots_.size() - 1)]);
  return key;
}

bool TokenCache::Holds(const Slot& slot, const TokenKey& key) const {
  if (slot.front != key.front || slot.back != key.back || slot.length != key.length) return false;
  return key.length <= 2 * END ||
         text_.substr(slot.begin, key.length) == text_.substr(key.begin, key.length);
}

TokenMeaning TokenCache::MeaningOf(const TokenKey& key) {
  const std::u16string_view token = text_.substr(key.begin, key.length);
  if (key.length > LONGEST_KEPT) return Analyze(token);
  const std::size_t mask = slots_.size() - 1;
  std::size_t place = key.hash & mask;
  for (; slots_[place].length != 0; place = (place + 1) & mask) {
    const Slot& slot = slots_[place];
    if (Holds(slot, key)) return {slot.entry, slot.wordLength};
  }
  const TokenMeaning meaning = Analyze(token);
  if (2 * ++used_ > slots_.size()) Grow();
  Fill({key.front, key.back, key.begin, key.hash, meaning.entry, meaning.wordLength,
        static_cast<std::uint8_t>(key.length)});
  return meaning;
}

TokenMeaning TokenCache::Analyze(std::u16string_view token) {
  const std::u16string_view word = WordOfToken(token, alphabet_);
  if (!MayEnterTable(word) || (sought_ != nullptr && !IsSearchWord(word, *sought_, alphabet_)))
    return {};
  return {EntryOf(token, word), static_cast<std::uint8_t>(word.size())};
}

// Returns the entry of the word of a token that is not in the cache yet. The word is cached as the
// token with the same spelling, which saves a second look-up table. The exception is a word whose
// spelling as a token is not a word: "1990s" gives the word "1990", but the token "1990" is a
// number and no word.
EntryIndex TokenCache::EntryOf(std::u16string_view token, std::u16string_view word) {
  if (word.size() == token.size()) return AddEntry(word);
  if (WordOfToken(word, alphabet_) == word) {
    return MeaningOf(KeyOf(static_cast<std::size_t>(word.data() - text_.data()), word.size()))
        .entry;
  }
  const auto known = others_.find(word);
  return known != others_.end() ? known->second : others_[word] = AddEntry(word);
}

EntryIndex TokenCache::AddEntry(std::u16string_view word) {
  table_.entries.push_back(NewWordEntry(word, alphabet_));
  return table_.IndexOf(table_.entries.back());
}

// Stores a token in the first free slot of its probe sequence.
void TokenCache::Fill(const Slot& slot) {
  const std::size_t mask = slots_.size() - 1;
  std::size_t place = slot.hash & mask;
  while (slots_[place].length != 0) place = (place + 1) & mask;
  slots_[place] = slot;
}

void TokenCache::Grow() {
  std::vector<Slot> old(2 * slots_.size());
  old.swap(slots_);
  for (const Slot& slot : old) {
    if (slot.length != 0) Fill(slot);
  }
}

}  // namespace quorvel
