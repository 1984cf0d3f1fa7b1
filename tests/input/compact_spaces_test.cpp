#include "input/compact_spaces.h"

#include <gtest/gtest.h>

#include "support/made_texts.h"

namespace quorvel {
namespace {

std::string CompactedSlowly(const std::string& text) {
  std::string result;
  for (const char ch : text) {
    const bool isBlank = ch >= '\0' && ch <= ' ';
    if (!isBlank) result += ch;
    if (isBlank && !result.ends_with(' ')) result += ' ';
  }
  return result;
}

TEST(CompactSpaces, MakesOneBlankOfEachRun) {
  const std::vector<std::string> parts = {"a b", "\t", "!", std::string(1, '\0'), "\xA0", "\x1F"};
  const std::vector<std::string> longParts = {std::string(63, 'a'), std::string(64, ' '),
                                              std::string(65, '\n'), " ", "ab "};
  std::mt19937 random(1);
  for (int i = 0; i < 1500; ++i) {
    const std::string original = RandomText(i % 2 == 0 ? parts : longParts, 90, random);
    std::string text = original;
    CompactSpaces(text);
    ASSERT_EQ(text, CompactedSlowly(original)) << testing::PrintToString(original);
  }
}

}  // namespace
}  // namespace quorvel
