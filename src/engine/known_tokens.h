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
  std::int32_t wordLength = 0;   // in characters
};

// Belongs to one text and to the table that its words go to. Both must outlive it.
class KnownTokens {
 public:
  KnownTokens(std::u16string_view text, WordTable& table) : text_(text), table_(table) {}

  // What the token at the 0-based `begin`, of `length` characters, at least MIN_WORD_LENGTH,
  // stands for. A word that is new to the table gets an entry.
  TokenMeaning MeaningOf(std::size_t begin, std::size_t length);

 private:
  // A spelling; one of up to eight characters is known by these three alone, which saves a
  // look at the text.
  struct Spelling {
    std::uint64_t front = 0;  // its first four characters
    std::uint64_t back = 0;   // and its last four
    std::uint32_t length = 0;

    bool operator==(const Spelling&) const = default;
  };

  struct Slot {
    Spelling spelling;        // of length 0 in a free slot
    std::uint32_t begin = 0;  // where it stands first
    TokenMeaning meaning;
  };

  [[nodiscard]] Spelling SpellingOf(std::size_t begin, std::size_t length) const;
  [[nodiscard]] std::size_t FirstPlaceOf(const Spelling& spelling, std::size_t begin) const;
  [[nodiscard]] bool Holds(const Slot& slot, const Spelling& spelling, std::size_t begin) const;
  [[nodiscard]] TokenMeaning LookInto(std::u16string_view token);
  void Grow();

  std::u16string_view text_;
  WordTable& table_;
  std::vector<Slot> slots_;  // a power of two of them, at most half in use
  std::size_t used_ = 0;
};

}  // namespace quorvel
