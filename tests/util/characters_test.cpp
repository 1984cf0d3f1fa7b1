#include "util/characters.h"

#include <gtest/gtest.h>

#include <tuple>

namespace quorvel {
namespace {

using Text = std::u16string;

TEST(Characters, Cases) {
  const std::tuple<Text, Text, Text> rows[] = {{u"AZŠŒŸÀÆÉÖÞ", u"azšœÿàæéöþ", u"AZŠŒŸÀÆÉÖÞ"},
                                               {u"azšœÿàæéöþ", u"azšœÿàæéöþ", u"AZŠŒŸÀÆÉÖÞ"},
                                               {u"ðÐ", u"ðð", u"ÐÐ"},
                                               {u"ßŽž3-×÷@[`{", u"ßžž3-×÷@[`{", u"ßŽž3-×÷@[`{"}};
  for (const auto& [text, lower, expectedUpper] : rows) {
    Text upper = text;
    for (char16_t& ch : upper) ch = ToUpperCase(ch);
    EXPECT_EQ(upper, expectedUpper);
    EXPECT_EQ(ToLowerCase(text), lower);
  }
}

}  // namespace
}  // namespace quorvel
