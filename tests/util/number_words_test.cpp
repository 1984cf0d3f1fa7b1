#include "util/number_words.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace quorvel {
namespace {

TEST(NumberWords, InWords) {
  const std::pair<std::string, const char*> rows[] = {
      {NumberInWords(0) + " " + NumberInWords(19), "zero nineteen"},
      {NumberInWords(20) + " " + NumberInWords(21), "twenty twenty-one"},
      {NumberInWords(99) + " " + NumberInWords(100), "ninety-nine one hundred"},
      {NumberInWords(2340), "two thousand three hundred forty"},
      {NumberInWords(1000) + " " + NumberInWords(1000000), "one thousand one million"},
      {NumberInWords(12000013), "twelve million thirteen"},
      {NumberInWords(1200000000040), "one thousand two hundred billion forty"},
      {CountInWords(42, "One word", " words"), "Forty-two words"},
      {CountInWords(1, "One word", " words"), "One word"}};
  for (const auto& [found, expected] : rows) EXPECT_EQ(found, expected);
}

TEST(NumberWords, OfCardinals) {
  const std::vector<std::u16string> words = CardinalWords();
  EXPECT_EQ(words.size(), 208U);
  EXPECT_TRUE(std::ranges::is_sorted(words));
  for (const char16_t* word : {u"zero", u"Ninety-nine", u"hundred", u"Thousand", u"Billion"}) {
    EXPECT_EQ(std::ranges::count(words, word), 1);
  }
}

}  // namespace
}  // namespace quorvel
