#include "util/number_words.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
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

TEST(NumberWords, CardinalsAreSortedAndDistinct) {
  const std::vector<std::u16string> words = CardinalWords();
  EXPECT_EQ(words.size(), 2u * (20 + 8 + 8 * 9 + 4));
  EXPECT_EQ(std::ranges::adjacent_find(words, std::greater_equal<>()), words.end());
  for (const auto* word : {u"zero", u"Nineteen", u"Twenty-one", u"Hundred", u"billion"}) {
    EXPECT_TRUE(std::ranges::binary_search(words, word)) << testing::PrintToString(word);
  }
}

}  // namespace
}  // namespace quorvel
