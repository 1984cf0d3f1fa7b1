// What the tokens of a text stand for, so that each spelling is looked into only once: the
// spellings of a text are few beside its tokens.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "engine/word_table.h"

namespace quorvel {

// The word that a token stands for.
struct TokenMeaning {
  static constexpr std::int32_t NO_WORD = -1;

  std::int32_t entry = NO_WORD;  // 0-based in the table
  std::uint32_t wordLength = 0;  // in characters
};

// Belongs to one text and to the table that its words go to. Both must outlive it.
class KnownTokens {
 public:
  KnownTokens(std::u16string_view text, WordTable& table) : text_(text), table_(table) {}

  // What the token at the 0-based `begin`, of `length` characters, stands for. A word that
  // is new to the table gets an entry.
  TokenMeaning MeaningOf(std::size_t begin, std::size_t length);

 private:
  struct Slot {
    std::uint32_t hash = 0;
    std::uint32_t length = 0;  // 0 for a free slot
    std::size_t begin = 0;     // where the spelling stands first
    TokenMeaning meaning;
  };

  [[nodiscard]] TokenMeaning LookInto(std::u16string_view token);
  void Grow();

  std::u16string_view text_;
  WordTable& table_;
  std::vector<Slot> slots_;  // a power of two of them, at most half in use
  std::size_t used_ = 0;
};

}  // namespace quorvel
