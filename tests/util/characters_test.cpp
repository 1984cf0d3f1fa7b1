#include "util/characters.h"

#include <gtest/gtest.h>

namespace quorvel {
namespace {

using Text = std::u16string;

TEST(Characters, Cases) {
  const Text mixed = u"AazZŠœŸÀàÆéÖÿþÐðßŽž3-×÷@[`{";
  Text upper = mixed;
  for (char16_t& ch : upper) ch = ToUpperCase(ch);
  EXPECT_EQ(upper, u"AAZZŠŒŸÀÀÆÉÖŸÞÐÐßŽž3-×÷@[`{");
  EXPECT_EQ(ToLowerCase(mixed), u"aazzšœÿààæéöÿþððßžž3-×÷@[`{");
}

Text Those(bool (*test)(char16_t)) {
  Text text;
  for (std::uint32_t ch = 0; ch < 0x10000; ++ch) {
    if (test(static_cast<char16_t>(ch))) text += static_cast<char16_t>(ch);
  }
  return text;
}

TEST(Characters, Classes) {
  const Text letters =
      u"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz"
      u"ÀÁÂÃÄÅÆÇÈÉÊËÌÍÎÏÐÑÒÓÔÕÖØÙÚÛÜÝÞßàáâãäåæçèéêëìíîïðñòóôõöøùúûüýþÿŒœŠšŸ";
  EXPECT_EQ(Those([](char16_t ch) { return IsLetter(ch); }), letters);
  EXPECT_EQ(Those([](char16_t ch) { return IsDigit(ch); }), u"0123456789");
  EXPECT_EQ(Those([](char16_t ch) { return IsLowerVowel(ch); }), u"aeiouàáâãäåæèéêëìíîïòóôõöøùúûü");
  EXPECT_EQ(Those([](char16_t ch) { return IsWordCharacter(ch); }), u"-0123456789" + letters);
}

}  // namespace
}  // namespace quorvel
