#include "util/number_words.h"

#include <gtest/gtest.h>

#include <limits>

namespace quorvel {
namespace {

TEST(NumberWords, InWords) {
  const std::pair<int32_t, const char*> rows[] = {
      {0, "zero"},
      {21, "twenty-one"},
      {2340, "two thousand three hundred forty"},
      {12000013, "twelve million thirteen"},
      {std::numeric_limits<int32_t>::min(),
       "minus two billion one hundred forty-seven million "
       "four hundred eighty-three thousand six hundred forty-eight"}};
  for (const auto& [number, expected] : rows) EXPECT_EQ(NumberInWords(number), expected);
}

}  // namespace
}  // namespace quorvel
