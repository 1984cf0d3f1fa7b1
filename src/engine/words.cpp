#include "engine/words.h"

#include <algorithm>
#include <utility>

#include "engine/divided_scan.h"

namespace quorvel {

Words ScanWords(std::shared_ptr<const Document> document, const KeywordLists* sought,
                Progress& progress) {
  const std::u16string_view text = document->documentText;
  const Alphabet& alphabet = document->AlphabetOf();
  const auto pieces = PiecesOfText(text, alphabet, BestPieceCount(text.size()));
  auto table = std::make_shared<WordTable>(ScanPieces(text, pieces, alphabet, sought, progress));
  table->positionWidth = PositionWidth(text.size());
  return {std::move(document), std::move(table)};
}

WordCounts CountIncludedWords(const WordTable& table, const IncludeFlags& include) {
  WordCounts counts;
  for (std::size_t i = 0; i < include.size(); ++i) {
    if (!include[i]) continue;
    ++counts.includedCount;
    counts.totalOccurrences += table.entries[i].Count();
  }
  return counts;
}

// Sorts plain numbers instead of entries: the high half is the maximum minus the count, the low
// half is the index of the entry.
std::vector<EntryIndex> BuildFrequencyChain(const WordTable& table, const IncludeFlags& include) {
  constexpr unsigned HALF = 32;
  constexpr std::uint64_t LOW_HALF = (std::uint64_t{1} << HALF) - 1;
  std::vector<std::uint64_t> numbers;
  for (std::size_t i = 0; i < include.size(); ++i) {
    const auto lack = LOW_HALF - static_cast<std::uint64_t>(table.entries[i].Count());
    if (include[i]) numbers.push_back(lack << HALF | i);
  }
  std::sort(numbers.begin(), numbers.end());
  std::vector<EntryIndex> chain(numbers.size());
  std::transform(numbers.begin(), numbers.end(), chain.begin(),
                 [](std::uint64_t number) { return static_cast<EntryIndex>(number & LOW_HALF); });
  return chain;
}

}  // namespace quorvel
