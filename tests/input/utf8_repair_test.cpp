#include "input/utf8_repair.h"

#include <gtest/gtest.h>

#include "naive/naive_forms.h"
#include "support/made_texts.h"

namespace quorvel {

TEST(Utf8Repair, IsItsNaiveForm) {
  std::vector<std::string> parts = {"\xE2\x80", "\xE2\x80\xA0", "\xE2",     "x\x80",
                                    "\xC4\x8D", "\xC4\x8C",     "\xC2\x85", "\xC2\xA0",
                                    "\xC2\xBF", "\xC2.",        "\xC3\x80", "\xC3\xBF",
                                    "\xC3\x83", "\xC3.",        "\xC2\x9F", "\xC3\xA9"};
  for (int third = 128; third < 192; ++third) {
    parts.push_back("\xE2\x80" + std::string(1, static_cast<char>(third)));
  }
  std::mt19937 random(1);
  for (int i = 0; i < 5000; ++i) {
    const std::string original = RandomText(parts, 7, random);
    std::string text = original;
    RepairUtf8(text);
    ASSERT_EQ(text, naive::RepairUtf8(original)) << testing::PrintToString(original);
    const std::string repaired = text;
    PlainPunctuation(text);
    ASSERT_EQ(text, naive::PlainPunctuation(repaired)) << testing::PrintToString(repaired);
  }
}

}  // namespace quorvel
