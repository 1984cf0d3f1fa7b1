#include "util/number_words.h"

#include <gtest/gtest.h>

namespace quorvel {
namespace {

TEST(NumberWords, InWords) {
  const std::pair<std::int64_t, const char*> rows[] = {
      {0, "zero"},
      {21, "twenty-one"},
      {2340, "two thousand three hundred forty"},
      {12000013, "twelve million thirteen"},
      {1200000000040, "one thousand two hundred billion forty"}};
  for (const auto& [number, expected] : rows) EXPECT_EQ(NumberInWords(number), expected);
  EXPECT_EQ(CountInWords(42, "One word", " words"), "Forty-two words");
}

}  // namespace
}  // namespace quorvel
