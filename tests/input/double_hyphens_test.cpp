#include "input/double_hyphens.h"

#include <gtest/gtest.h>

#include "naive/naive_forms.h"
#include "support/made_texts.h"
#include "util/ansi.h"

namespace quorvel {
namespace {

TEST(DoubleHyphens, AreBlankedAsByTheSlowForm) {
  std::mt19937 random(1);
  for (int i = 0; i < 4000; ++i) {
    const auto original = RandomText<std::string>(
        {"-", "--", "<!--", "-->", "<!-", "->", "!--", "x", "abcdefghijklm"}, 12, random);
    std::string text = original;
    BlankDoubleHyphens(text);
    ASSERT_EQ(text, EncodeAnsi(naive::BlankDoubleHyphens(DecodeAnsi(original)))) << original;
  }
}

}  // namespace
}  // namespace quorvel
