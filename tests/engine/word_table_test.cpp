#include "engine/word_table.h"

#include <gtest/gtest.h>

namespace quorvel {

TEST(WordTable, PositionWidthByLogarithms) {
  const std::pair<std::size_t, int> rows[] = {{0, 1},    {1, 1},    {9, 1},       {10, 2},
                                              {1000, 3}, {1001, 4}, {1000000, 6}, {2147483647, 10}};
  for (const auto& [length, width] : rows) EXPECT_EQ(PositionWidth(length), width) << length;
}

}  // namespace quorvel
