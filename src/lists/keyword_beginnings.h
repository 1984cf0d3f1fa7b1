// A fast test for the words that a search looks for, by their first characters.
//
// Three characters exclude nearly all other words of a text, so a scan for keywords need not look
// at their remaining characters.
#pragma once

#include <bitset>
#include <cstddef>
#include <string_view>

#include "lists/keywords.h"
#include "util/alphabet.h"

namespace quorvel {

class KeywordBeginnings {
 public:
  // The number of characters that are examined.
  static constexpr std::size_t LENGTH = 3;

  KeywordBeginnings(const KeywordLists& keywords, const Alphabet& alphabet);

  // The first characters of all beginnings, modulo FIRSTS.
  static constexpr std::size_t FIRSTS = 32;
  [[nodiscard]] const std::bitset<FIRSTS>& Firsts() const { return firsts_; }

  // True when a word that begins with the LENGTH characters at `word` may be a keyword, in any
  // case. False is certain; true may be wrong.
  [[nodiscard]] bool MayBegin(const char16_t* word) const {
    std::size_t beginning = 0;
    for (std::size_t i = 0; i < LENGTH; ++i) beginning = Extended(beginning, word[i]);
    return known_[beginning];
  }

 private:
  static constexpr std::size_t BITS = 5;  // enough to distinguish the letters of English
  static constexpr std::size_t VALUES = std::size_t{1} << BITS;
  static_assert(VALUES == FIRSTS);

  static std::size_t Extended(std::size_t beginning, std::size_t character) {
    return beginning << BITS | character % VALUES;
  }

  void Add(std::u16string_view pattern, std::size_t beginning, std::size_t length);
  void AddBeginning(std::size_t beginning);

  const Alphabet& alphabet_;
  std::bitset<std::size_t{1} << (LENGTH * BITS)> known_;
  std::bitset<FIRSTS> firsts_;
};

}  // namespace quorvel
