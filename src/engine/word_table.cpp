#include "engine/word_table.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "util/leading_units.h"

namespace quorvel {
namespace {

// Joins two sorted tables. The positions in `last` are behind those in `first`.
WordTable Joined(WordTable first, WordTable last) {
  WordTable joined;
  const auto take = [&joined](WordEntry& entry) { joined.entries.push_back(std::move(entry)); };
  auto next = last.entries.begin();
  for (WordEntry& entry : first.entries) {
    while (next != last.entries.end() && PrecedesAlphabetically(*next, entry)) take(*next++);
    take(entry);
    if (next == last.entries.end() || next->word != joined.entries.back().word) continue;
    std::vector<Position>& positions = joined.entries.back().positions;
    positions.insert(positions.end(), next->positions.begin(), next->positions.end());
    ++next;
  }
  std::for_each(next, last.entries.end(), take);
  return joined;
}

}  // namespace

WordEntry NewWordEntry(std::u16string_view word, const Alphabet& alphabet) {
  WordEntry entry;
  entry.word = word;
  entry.sortKey = alphabet.SortKey(word);
  return entry;
}

// Compatibility: computed by logarithms instead of counting digits, because users' index files are
// written so. For some powers of ten the quotient is slightly too low (1000 gives
// 2.9999999999999996, so 3 digits). Positions still fit, because the last one that is recorded is
// smaller than the length.
int PositionWidth(std::size_t length) {
  if (length == 0) return 1;
  return static_cast<int>(std::log(static_cast<double>(length)) / std::log(10.0)) + 1;
}

bool PrecedesAlphabetically(const WordEntry& a, const WordEntry& b) {
  const int order = a.sortKey.compare(b.sortKey);
  return order != 0 ? order < 0 : a.word < b.word;
}

void SortWordTable(WordTable& table) {
  struct Place {
    std::uint64_t leading;
    std::size_t entry;
  };
  std::vector<WordEntry>& entries = table.entries;
  std::vector<Place> places(entries.size());
  for (std::size_t i = 0; i < places.size(); ++i) places[i] = {LeadingUnits(entries[i].sortKey), i};
  std::sort(places.begin(), places.end(), [&entries](const Place& a, const Place& b) {
    if (a.leading != b.leading) return a.leading < b.leading;
    return PrecedesAlphabetically(entries[a.entry], entries[b.entry]);
  });
  std::vector<WordEntry> sorted(entries.size());
  std::transform(places.begin(), places.end(), sorted.begin(),
                 [&entries](const Place& place) { return std::move(entries[place.entry]); });
  entries.swap(sorted);
}

// Neighbours are joined until one table is left, so that each entry is moved log n times.
WordTable JoinedTables(std::vector<WordTable> tables) {
  while (tables.size() > 1) {
    std::vector<WordTable> joined;
    for (std::size_t i = 0; i + 1 < tables.size(); i += 2) {
      joined.push_back(Joined(std::move(tables[i]), std::move(tables[i + 1])));
    }
    if (tables.size() % 2 != 0) joined.push_back(std::move(tables.back()));
    tables.swap(joined);
  }
  return std::move(tables.front());
}

}  // namespace quorvel
