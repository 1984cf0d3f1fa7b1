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

// Those for which `test` holds, of all there are.
Text Those(bool (*test)(char16_t)) {
  Text text;
  for (std::uint32_t ch = 0; ch < 0x10000; ++ch) {
    if (test(static_cast<char16_t>(ch))) text += static_cast<char16_t>(ch);
  }
  return text;
}

TEST(Characters, Classes) {
  const Text lowerVowels = u"aeiouàáâãäåæèéêëìíîïòóôõöøùúûü";
  const Text letters =
      u"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz"
      u"ÀÁÂÃÄÅÆÇÈÉÊËÌÍÎÏÐÑÒÓÔÕÖØÙÚÛÜÝÞßàáâãäåæçèéêëìíîïðñòóôõöøùúûüýþÿŒœŠšŸ";
  EXPECT_EQ(Those([](char16_t ch) { return IsLetter(ch); }), letters);
  EXPECT_EQ(Those([](char16_t ch) { return IsDigit(ch); }), u"0123456789");
  EXPECT_EQ(Those([](char16_t ch) { return IsLowerVowel(ch); }), lowerVowels);
  EXPECT_EQ(Those([](char16_t ch) { return IsWordCharacter(ch); }), u"-0123456789" + letters);
}

}  // namespace
}  // namespace quorvel
