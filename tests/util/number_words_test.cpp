#include "util/number_words.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace quorvel {

TEST(NumberWords, InWords) {
  const std::pair<int64_t, const char*> rows[] = {
      {0, "zero"},
      {19, "nineteen"},
      {20, "twenty"},
      {99, "ninety-nine"},
      {100, "one hundred"},
      {2340, "two thousand three hundred forty"},
      {12000013, "twelve million thirteen"},
      {1200000000040, "one thousand two hundred billion forty"}};
  for (const auto& [number, words] : rows) EXPECT_EQ(NumberInWords(number), words);
  EXPECT_EQ(CountInWords(42, "One word", " words"), "Forty-two words");
  EXPECT_EQ(CountInWords(1, "One word", " words"), "One word");
}

TEST(NumberWords, OfCardinals) {
  const std::vector<std::u16string> words = CardinalWords();
  EXPECT_EQ(words.size(), 208U);
  EXPECT_TRUE(std::ranges::is_sorted(words));
  for (const char16_t* word : {u"zero", u"Ninety-nine", u"hundred", u"Thousand", u"Billion"}) {
    EXPECT_EQ(std::ranges::count(words, word), 1);
  }
}

}  // namespace quorvel
