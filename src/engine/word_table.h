// The word table: the distinct words of one document, each with the positions where it occurs.
//
// AddWordToList fills it while the text is scanned. Then it is sorted by folded key. Spellings that
// differ in case or accents are different words. The table does not say which words are listed.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "engine/position.h"
#include "util/alphabet.h"

namespace quorvel {

struct WordEntry {
  std::u16string word;              // as spelled in the text
  std::u16string sortKey;           // lower case, umlauts and accents folded
  std::vector<Position> positions;  // in the order of the text

  [[nodiscard]] std::int32_t Count() const { return static_cast<std::int32_t>(positions.size()); }
};

// The 0-based index of an entry in the word table.
enum class EntryIndex : std::int32_t {};

struct WordTable {
  std::vector<WordEntry> entries;
  int positionWidth = 1;  // digits of a position in the index file

  [[nodiscard]] std::int32_t WordCount() const { return static_cast<std::int32_t>(entries.size()); }
  [[nodiscard]] WordEntry& At(EntryIndex entry) { return entries[static_cast<std::size_t>(entry)]; }
  [[nodiscard]] const WordEntry& At(EntryIndex entry) const {
    return entries[static_cast<std::size_t>(entry)];
  }
  // The index of one of the table's own entries.
  [[nodiscard]] EntryIndex IndexOf(const WordEntry& entry) const {
    return static_cast<EntryIndex>(&entry - entries.data());
  }
};

// Returns a new entry for `word`, with its sort key and without occurrences.
[[nodiscard]] WordEntry NewWordEntry(std::u16string_view word, const Alphabet& alphabet);

// The number of digits of a position in a text of `length` characters.
[[nodiscard]] int PositionWidth(std::size_t length);

// Records an occurrence of the word of `entry` at `offset` in the document text.
inline void AddWordToList(WordTable& table, EntryIndex entry, Position offset) {
  table.At(entry).positions.push_back(offset);
}

// True when entry `a` comes before `b` in alphabetical order: by sort key, then by spelling.
[[nodiscard]] bool PrecedesAlphabetically(const WordEntry& a, const WordEntry& b);

// Sorts the entries alphabetically: by sort key, then by spelling. Before, they are in the order of
// their first occurrence. No words may be added afterwards, because indices of entries change.
void SortWordTable(WordTable& table);

// Joins the sorted tables of consecutive pieces of a text, at least one, to the sorted table of the
// whole text.
[[nodiscard]] WordTable JoinedTables(std::vector<WordTable> tables);

}  // namespace quorvel
