#include "util/characters.h"

#include <gtest/gtest.h>

#include <tuple>

namespace quorvel {
namespace {

using Text = std::u16string;

TEST(Characters, LowerVowels) {
  const Text vowels = u"aeiouàáâãäåæèéêëìíîïòóôõöøùúûü";
  for (char32_t code = 0; code <= 0xFFFF; ++code) {
    const auto ch = static_cast<char16_t>(code);
    EXPECT_EQ(IsLowerVowel(ch), vowels.find(ch) != Text::npos) << static_cast<unsigned>(code);
  }
}

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
