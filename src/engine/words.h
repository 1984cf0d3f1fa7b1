// The words of a document, and which of them are listed in which order.
//
// Each value is built by one function and is constant afterwards. It holds the values that it was
// made from, so that only values that belong together can be combined.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "engine/word_table.h"
#include "input/document.h"
#include "lists/keywords.h"
#include "util/progress.h"

namespace quorvel {

// The words of a document with their positions, in alphabetical order.
struct Words {
  std::shared_ptr<const Document> document;
  std::shared_ptr<const WordTable> table;
};

// Scans the document. If `sought` is not null, only these words are recorded, which is much faster.
// After a stop the result holds the words found so far.
[[nodiscard]] Words ScanWords(std::shared_ptr<const Document> document, const KeywordLists* sought,
                              Progress& progress);

// For each entry of a table: true when it is listed.
using IncludeFlags = std::vector<bool>;

struct WordCounts {
  std::int32_t includedCount = 0;
  std::int64_t totalOccurrences = 0;  // of the included entries
};

// Counts the included entries and their occurrences.
[[nodiscard]] WordCounts CountIncludedWords(const WordTable& table, const IncludeFlags& include);

// Returns the included entries in descending order of their counts. Entries with equal counts stay
// in table order.
[[nodiscard]] std::vector<EntryIndex> BuildFrequencyChain(const WordTable& table,
                                                          const IncludeFlags& include);

// The words with everything that decides how they are listed.
struct ListedWords {
  Words words;
  IncludeFlags include;
  WordCounts counts;
  std::vector<EntryIndex> frequencyChain;  // as BuildFrequencyChain gives it
};

}  // namespace quorvel
