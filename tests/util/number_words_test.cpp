#include "util/number_words.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <limits>
#include <utility>

namespace quorvel {
namespace {

TEST(NumberWords, InWords) {
  const std::pair<int32_t, const char*> rows[] = {
      {0, "zero"},
      {19, "nineteen"},
      {20, "twenty"},
      {21, "twenty-one"},
      {99, "ninety-nine"},
      {100, "one hundred"},
      {105, "one hundred five"},
      {1000, "one thousand"},
      {2340, "two thousand three hundred forty"},
      {999999, "nine hundred ninety-nine thousand nine hundred ninety-nine"},
      {1000000, "one million"},
      {12000013, "twelve million thirteen"},
      {2147483647,
       "two billion one hundred forty-seven million "
       "four hundred eighty-three thousand six hundred forty-seven"},
      {std::numeric_limits<int32_t>::min(),
       "minus two billion one hundred forty-seven million "
       "four hundred eighty-three thousand six hundred forty-eight"}};
  for (const auto& [number, expected] : rows) EXPECT_EQ(NumberInWords(number), expected);
}

TEST(NumberWords, CardinalsAreSortedAndDistinct) {
  const std::vector<std::u16string> words = CardinalWords();
  EXPECT_EQ(words.size(), 2u * (20 + 8 + 8 * 9 + 4));
  EXPECT_EQ(std::ranges::adjacent_find(words, std::greater_equal<>()), words.end());
}

TEST(NumberWords, CardinalsHeld) {
  const std::pair<std::string, bool> rows[] = {
      {"zero", true},       {"Nineteen", true},     {"twenty", true},
      {"Twenty-one", true}, {"ninety-nine", true},  {"Hundred", true},
      {"thousand", true},   {"Million", true},      {"billion", true},
      {"", false},          {"Twenty-One", false},  {"twenty-zero", false},
      {"first", false},     {"one hundred", false}, {"minus", false}};
  const std::vector<std::u16string> words = CardinalWords();
  for (const auto& [word, held] : rows) {
    const std::u16string sought(word.begin(), word.end());
    EXPECT_EQ(std::ranges::binary_search(words, sought), held) << word;
  }
}

}  // namespace
}  // namespace quorvel
