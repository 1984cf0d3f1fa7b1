// The words of a document, and which of them are listed in which order.
//
// Each value is made whole by one function and not changed afterwards; it holds what it was made
// of, so that nothing can be put together that does not belong together.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "engine/word_table.h"
#include "input/document.h"
#include "lists/keywords.h"
#include "util/progress.h"

namespace quorvel {

// The words with their places in this document's text, alphabetical.
struct Words {
  std::shared_ptr<const Document> document;
  std::shared_ptr<const WordTable> table;
};

// Scans the document: all its words or, where such are given, those alone that are `sought`, which
// is much faster. After a stop the words that were found until then.
[[nodiscard]] Words ScanWords(std::shared_ptr<const Document> document, const KeywordLists* sought,
                              Progress& progress);

// Whether each entry of a table is listed.
using IncludeFlags = std::vector<bool>;

struct WordCounts {
  std::int32_t includedCount = 0;
  std::int64_t totalOccurrences = 0;  // of the included entries
};

[[nodiscard]] WordCounts CountIncludedWords(const WordTable& table, const IncludeFlags& include);

// The included entries, 0-based, in the order of falling count, in table order where
// counts are equal.
[[nodiscard]] std::vector<std::int32_t> BuildFrequencyChain(const WordTable& table,
                                                            const IncludeFlags& include);

// The words with what decides about their listing.
struct ListedWords {
  Words words;
  IncludeFlags include;
  WordCounts counts;
  std::vector<std::int32_t> frequencyChain;  // as BuildFrequencyChain gives it
};

}  // namespace quorvel
