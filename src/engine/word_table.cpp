#include "engine/word_table.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <utility>

#include "util/characters.h"
#include "util/text_hash.h"

namespace quorvel {
namespace {

// The first code units of a text as one number, so that most comparisons of a
// sort need not follow a pointer. Equal numbers decide nothing.
std::uint64_t LeadingUnits(std::u16string_view text) {
  constexpr std::size_t UNITS = 4;
  std::uint64_t number = 0;
  for (std::size_t i = 0; i < UNITS; ++i) {
    number = (number << 16U) | (i < text.size() ? text[i] : 0U);
  }
  return number;
}

}  // namespace

std::int32_t SpellingIndex::FindOrInsert(std::u16string_view word, std::int32_t newEntry,
                                         const std::vector<WordEntry>& entries) {
  if (2 * (used_ + 1) > slots_.size()) Grow();
  const std::uint32_t hash = HashOf(word);
  const std::size_t mask = slots_.size() - 1;
  std::size_t place = hash & mask;
  for (; slots_[place].entry != NOT_FOUND; place = (place + 1) & mask) {
    const Slot& slot = slots_[place];
    if (slot.hash == hash && entries[static_cast<std::size_t>(slot.entry)].word == word) {
      return slot.entry;
    }
  }
  slots_[place] = {hash, newEntry};
  ++used_;
  return NOT_FOUND;
}

void SpellingIndex::Clear() {
  slots_.clear();
  used_ = 0;
}

void SpellingIndex::Grow() {
  constexpr std::size_t FIRST_SIZE = 4096;
  std::vector<Slot> old(std::max(FIRST_SIZE, 2 * slots_.size()));
  old.swap(slots_);
  const std::size_t mask = slots_.size() - 1;
  for (const Slot& slot : old) {
    if (slot.entry == NOT_FOUND) continue;
    std::size_t place = slot.hash & mask;
    while (slots_[place].entry != NOT_FOUND) place = (place + 1) & mask;
    slots_[place] = slot;
  }
}

WordEntry NewWordEntry(std::u16string_view word) {
  WordEntry entry;
  entry.word = word;
  entry.sortKey = ToLowerCase(FoldForKey(word));
  return entry;
}

void EmptyWordTable(WordTable& table) { table = WordTable{}; }

// By logarithms, not by counting digits: the quotient falls just below some powers
// of ten (1000 gives 2.9999999999999996, so 3 digits). Every offset is smaller
// than the length and still fits, and the files in use were written so.
int PositionWidth(std::size_t length) {
  if (length == 0) return 1;
  return static_cast<int>(std::log(static_cast<double>(length)) / std::log(10.0)) + 1;
}

std::int32_t EntryOf(WordTable& table, std::u16string_view word) {
  const std::int32_t found = table.spellings.FindOrInsert(word, table.WordCount(), table.entries);
  if (found != SpellingIndex::NOT_FOUND) return found;
  table.entries.push_back(NewWordEntry(word));
  return table.WordCount() - 1;
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
  std::vector<Place> places;
  places.reserve(entries.size());
  for (const WordEntry& entry : entries) {
    places.push_back({LeadingUnits(entry.sortKey), places.size()});
  }
  std::sort(places.begin(), places.end(), [&entries](const Place& a, const Place& b) {
    if (a.leading != b.leading) return a.leading < b.leading;
    return PrecedesAlphabetically(entries[a.entry], entries[b.entry]);
  });
  std::vector<WordEntry> sorted;
  sorted.reserve(entries.size());
  for (const Place& place : places) sorted.push_back(std::move(entries[place.entry]));
  entries.swap(sorted);
  table.spellings.Clear();
}

void CountIncludedWords(WordTable& table) {
  table.includedCount = 0;
  table.totalOccurrences = 0;
  for (const WordEntry& entry : table.entries) {
    if (!entry.include) continue;
    ++table.includedCount;
    table.totalOccurrences += entry.Count();
  }
}

void BuildFrequencyChain(WordTable& table) {
  std::vector<std::int32_t> chain;  // 1-based entries
  for (std::int32_t i = 1; i <= table.WordCount(); ++i) {
    WordEntry& entry = table.entries[static_cast<std::size_t>(i) - 1];
    entry.frequencyPrev = 0;
    entry.frequencyNext = 0;
    if (entry.include) chain.push_back(i);
  }
  const auto entryAt = [&table](std::int32_t i) -> WordEntry& {
    return table.entries[static_cast<std::size_t>(i) - 1];
  };
  std::stable_sort(chain.begin(), chain.end(), [&entryAt](std::int32_t a, std::int32_t b) {
    return entryAt(a).Count() > entryAt(b).Count();
  });
  for (std::size_t k = 1; k < chain.size(); ++k) {
    entryAt(chain[k - 1]).frequencyNext = chain[k];
    entryAt(chain[k]).frequencyPrev = chain[k - 1];
  }
  table.frequencyHead = chain.empty() ? 0 : chain.front();
}

}  // namespace quorvel
