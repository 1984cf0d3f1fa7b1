// The distinct words of one document, each with the places where it occurs.
//
// Filled by AddWordToList while the text is scanned, then sorted by folded key. Not a dictionary:
// spellings that differ in case or accent are different words. Which of them are listed is no
// matter of the table.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "util/alphabet.h"

namespace quorvel {

// In characters; longer words are never recorded.
inline constexpr std::size_t MAX_WORD_LENGTH = 30;

struct WordEntry {
  std::u16string word;                  // the spelling
  std::u16string sortKey;               // lower case, umlauts and accents folded
  std::vector<std::int32_t> positions;  // 1-based places in the text, in text order

  [[nodiscard]] std::int32_t Count() const { return static_cast<std::int32_t>(positions.size()); }
};

struct WordTable {
  std::vector<WordEntry> entries;
  int positionWidth = 1;  // digits that a position is written with

  [[nodiscard]] std::int32_t WordCount() const { return static_cast<std::int32_t>(entries.size()); }
};

// A fresh entry for `word`, with its sort key and without any occurrence.
[[nodiscard]] WordEntry NewWordEntry(std::u16string_view word, const Alphabet& alphabet);

// The width of a position in a text of `length` characters.
[[nodiscard]] int PositionWidth(std::size_t length);

// Records one occurrence of the word of the 0-based `entry` at `offset`, a 1-based character
// position in the document text.
inline void AddWordToList(WordTable& table, std::int32_t entry, std::int32_t offset) {
  table.entries[static_cast<std::size_t>(entry)].positions.push_back(offset);
}

// Whether entry `a` stands before `b` in alphabetical order: by sort key, then by spelling.
[[nodiscard]] bool PrecedesAlphabetically(const WordEntry& a, const WordEntry& b);

// Puts the entries, which the scan leaves in the order of first occurrence, into
// alphabetical order: by sort key, then by spelling. Nothing can be added after it.
void SortWordTable(WordTable& table);

}  // namespace quorvel
