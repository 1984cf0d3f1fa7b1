#include "util/find_pair.h"

#include <gtest/gtest.h>

namespace quorvel {

// The bytes after the text in memory do not belong to it.
TEST(FindPair, GivesTheFirstPairOfTheText) {
  for (std::size_t length = 1; length < 150; ++length) {
    const std::string text = std::string(length, 'a') + "-+-+";
    const auto without = std::string_view(text).substr(0, length + 1);
    for (std::size_t from = 0; from <= length; ++from) {
      EXPECT_EQ(FindPair(text, from, '-', '+'), length);
      EXPECT_EQ(FindPair(without, from, '-', '+'), without.size()) << from;
    }
    EXPECT_EQ(FindPair(text, length + 1, '-', '+'), length + 2);
  }
}

}  // namespace quorvel
