// What the tokens of a text stand for, so that each spelling is looked into only once: the
// spellings of a text are few beside its tokens.
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

// The word that a token stands for.
struct TokenMeaning {
  static constexpr std::int32_t NO_WORD = -1;

  std::int32_t entry = NO_WORD;  // 0-based in the table
  std::uint8_t wordLength = 0;   // in characters
};

// A token as it is looked up. One of up to eight characters is known by its ends alone, which
// saves a look at the text.
struct TokenKey {
  std::uint64_t front = 0;   // its first four characters
  std::uint64_t back = 0;    // and its last four
  std::uint32_t begin = 0;   // 0-based in the text
  std::uint32_t length = 0;  // in characters
  std::uint32_t hash = 0;
};

// Belongs to one text and to the table that its words go to: all, or those that are `sought` where
// such are given. These three must outlive it.
class KnownTokens {
 public:
  KnownTokens(std::u16string_view text, const Alphabet& alphabet, WordTable& table,
              const KeywordLists* sought, const HashSeed& seed);

  // The key of the token at the 0-based `begin`, of `length` characters, at least
  // MIN_WORD_LENGTH. Has what is known of it fetched from memory: it is there when it is
  // asked for some tokens later.
  [[nodiscard]] TokenKey KeyOf(std::size_t begin, std::size_t length) const;

  // What the token stands for. A word that is new to the table gets an entry.
  TokenMeaning MeaningOf(const TokenKey& key);

 private:
  struct Slot {
    std::uint64_t front = 0;
    std::uint64_t back = 0;
    std::uint32_t begin = 0;  // where it stands first
    std::uint32_t hash = 0;
    std::int32_t entry = TokenMeaning::NO_WORD;
    std::uint8_t wordLength = 0;
    std::uint8_t length = 0;  // 0 in a free slot
  };

  [[nodiscard]] bool Holds(const Slot& slot, const TokenKey& key) const;
  [[nodiscard]] TokenMeaning LookInto(std::u16string_view token);
  [[nodiscard]] std::int32_t EntryOf(std::u16string_view token, std::u16string_view word);
  std::int32_t AddEntry(std::u16string_view word);
  void Fill(const Slot& slot);
  void Grow();

  std::u16string_view text_;
  const Alphabet& alphabet_;
  WordTable& table_;
  const KeywordLists* sought_;
  HashSeed seed_;
  std::vector<Slot> slots_;  // a power of two of them, at most half in use
  std::size_t used_ = 0;
  std::map<std::u16string_view, std::int32_t> others_;  // entries of words that are no token's own
};

}  // namespace quorvel
