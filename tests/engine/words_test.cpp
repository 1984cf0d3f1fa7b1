#include "engine/words.h"

#include <gtest/gtest.h>

#include "support/scanned_text.h"

namespace quorvel {
namespace {

TEST(Words, AreCountedAndChainedByFrequency) {
  const WordTable table =
      MadeTable({{u"a", {1}}, {u"b", {2, 3}}, {u"c", {4, 5, 6}}, {u"d", {7, 8}}, {u"e", {9}}});
  const std::tuple<IncludeFlags, std::int32_t, std::int64_t, std::vector<std::int32_t>> rows[] = {
      {{true, true, true, true, true}, 5, 9, {2, 1, 3, 0, 4}},
      {{true, false, false, true, true}, 3, 4, {3, 0, 4}},
      {{false, false, false, false, false}, 0, 0, {}}};
  for (const auto& [include, words, occurrences, chain] : rows) {
    const WordCounts counts = CountIncludedWords(table, include);
    EXPECT_EQ(std::pair(counts.includedCount, counts.totalOccurrences),
              std::pair(words, occurrences));
    EXPECT_EQ(BuildFrequencyChain(table, include), chain);
  }
}

}  // namespace
}  // namespace quorvel
