// How the words that a search looks for begin.
//
// Three characters tell nearly all words of a text from them, so that a scan for keywords alone
// need not look any further at most words.
#pragma once

#include <bitset>
#include <cstddef>
#include <string_view>

#include "lists/keywords.h"
#include "util/alphabet.h"

namespace quorvel {

class KeywordBeginnings {
 public:
  // Characters of a word that are looked at.
  static constexpr std::size_t LENGTH = 3;

  KeywordBeginnings(const KeywordLists& keywords, const Alphabet& alphabet);

  // Whether a word that begins with the LENGTH characters at `word` may be a keyword, in whatever
  // case. False for certain; true also for some words that are none.
  [[nodiscard]] bool MayBegin(const char16_t* word) const {
    std::size_t beginning = 0;
    for (std::size_t i = 0; i < LENGTH; ++i) beginning = Extended(beginning, word[i]);
    return known_[beginning];
  }

 private:
  static constexpr std::size_t BITS = 5;  // enough to tell the letters of English apart
  static constexpr std::size_t VALUES = std::size_t{1} << BITS;

  static std::size_t Extended(std::size_t beginning, std::size_t character) {
    return beginning << BITS | character % VALUES;
  }

  void Add(std::u16string_view pattern, std::size_t beginning, std::size_t length);

  const Alphabet& alphabet_;
  std::bitset<std::size_t{1} << (LENGTH * BITS)> known_;
};

}  // namespace quorvel
