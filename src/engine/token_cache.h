// A token cache: it maps each token of a text to its word, so that each spelling is analysed only
// once. A text has far fewer spellings than tokens.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string_view>
#include <vector>

#include "engine/word_table.h"
#include "lists/keywords.h"
#include "util/alphabet.h"
#include "util/hash_seed.h"

namespace quorvel {

// The word of a token.
struct TokenMeaning {
  static constexpr EntryIndex NO_WORD{-1};

  EntryIndex entry = NO_WORD;
  std::uint8_t wordLength = 0;  // in characters
};

// The cache key of a token. A token of up to eight characters is identified by `front` and `back`
// alone, without reading the text again.
struct TokenKey {
  std::uint64_t front = 0;   // the first four characters
  std::uint64_t back = 0;    // the last four characters
  std::uint32_t begin = 0;   // 0-based index in the text
  std::uint32_t length = 0;  // in characters
  std::uint32_t hash = 0;
};

// A cache for one text. Words are added to `table`: all words, or only those in `sought` if it is
// not null. `text`, `alphabet`, `table` and `sought` must outlive the cache.
class TokenCache {
 public:
  TokenCache(std::u16string_view text, const Alphabet& alphabet, WordTable& table,
             const KeywordLists* sought, const HashSeed& seed);

  // Returns the key of the token at the 0-based index `begin`. `length` is in characters, at least
  // MIN_WORD_LENGTH. Prefetches the cache slot, so that MeaningOf is fast when it is called a few
  // tokens later.
  [[nodiscard]] TokenKey KeyOf(std::size_t begin, std::size_t length) const;

  // Returns the word of the token. A new word is added to the table.
  TokenMeaning MeaningOf(const TokenKey& key);

 private:
  struct Slot {
    std::uint64_t front = 0;
    std::uint64_t back = 0;
    std::uint32_t begin = 0;  // 0-based index of its first occurrence
    std::uint32_t hash = 0;
    EntryIndex entry = TokenMeaning::NO_WORD;
    std::uint8_t wordLength = 0;
    std::uint8_t length = 0;  // 0 in a free slot
  };

  [[nodiscard]] bool Holds(const Slot& slot, const TokenKey& key) const;
  [[nodiscard]] TokenMeaning Analyze(std::u16string_view token);
  [[nodiscard]] EntryIndex EntryOf(std::u16string_view token, std::u16string_view word);
  EntryIndex AddEntry(std::u16string_view word);
  void Fill(const Slot& slot);
  void Grow();

  std::u16string_view text_;
  const Alphabet& alphabet_;
  WordTable& table_;
  const KeywordLists* sought_;
  HashSeed seed_;
  std::vector<Slot> slots_;  // size a power of two, at most half in use
  std::size_t used_ = 0;
  std::map<std::u16string_view, EntryIndex> others_;  // of words not cached as tokens
};

}  // namespace quorvel
