#include "engine/word_table.h"

#include <gtest/gtest.h>

namespace quorvel {
namespace {

TEST(WordTable, PositionWidthByLogarithms) {
  const std::pair<std::size_t, int> rows[] = {{0, 1},       {1, 1},       {9, 1},
                                              {10, 2},      {1000, 3},    {1001, 4},
                                              {1000000, 6}, {1000001, 7}, {2147483647, 10}};
  for (const auto& [length, width] : rows) EXPECT_EQ(PositionWidth(length), width) << length;
}

TEST(WordTable, IsSortedByKeyThenBySpelling) {
  const char16_t* const sorted[] = {u"Aer",    u"aer",    u"Ärger",  u"ärgere", u"ärgern", u"house",
                                    u"housea", u"houseb", u"houses", u"Zoo",    u"zoo",    u"ðe"};
  WordTable table;
  for (const std::size_t i : {7, 1, 10, 3, 0, 9, 5, 11, 2, 8, 6, 4}) {
    table.entries.push_back(NewWordEntry(sorted[i]));
  }
  SortWordTable(table);
  for (std::size_t i = 0; i < std::size(sorted); ++i) EXPECT_EQ(table.entries[i].word, sorted[i]);
  EXPECT_EQ(NewWordEntry(u"Ärger").sortKey, u"aerger");
}

}  // namespace
}  // namespace quorvel
