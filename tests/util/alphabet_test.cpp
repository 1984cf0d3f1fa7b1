#include "util/alphabet.h"

#include <gtest/gtest.h>

#include "support/latin.h"

namespace quorvel {
namespace {

const Alphabet& unicode = Alphabet::Unicode();

// Both alphabets agree on every character of Windows-1252 except a few letters.
TEST(Alphabet, OfUnicodeAgreesWithThatOfWindows1252) {
  for (int byte = 0; byte < 256; ++byte) {
    const std::u16string ch = latin.Decode(std::string(1, static_cast<char>(byte)));
    const char16_t one = ch.front();
    if (std::u16string_view(u"ŽžªºµƒŽ").find(one) != std::u16string_view::npos) {
      EXPECT_TRUE(unicode.IsLetter(one) && !latin.IsLetter(one)) << byte;
      continue;
    }
    EXPECT_EQ(unicode.ClassOf(one), latin.ClassOf(one)) << byte;
    EXPECT_EQ(unicode.ToLowerCase(one), latin.ToLowerCase(one)) << byte;
    EXPECT_EQ(unicode.ToUpperCase(one), latin.ToUpperCase(one)) << byte;
    EXPECT_EQ(unicode.SortKey(ch), latin.SortKey(ch)) << byte;
  }
}

TEST(Alphabet, OfUnicodeHasItsLettersMarksAndDigits) {
  const std::u16string letters = u"žŁłőξЖжאبहिंी한漢\u0301\U00010330\U00010428";
  for (std::size_t i = 0; i < letters.size(); ++i) {
    EXPECT_EQ(unicode.ClassAt(letters, i) & ~CLASS_LOWER_VOWEL, CLASS_LETTER) << i;
  }
  EXPECT_FALSE(unicode.ContainsNoLetter(u"\U00010330"));
  EXPECT_TRUE(unicode.ContainsNoLetter(u"٣९7 \U0001D7D8"));
  const std::u16string others = u"\xDC00\u00a0\u2019\u2013€†\u200d\U0001F600\xD800 \xDC00";
  for (std::size_t i = 0; i < others.size(); ++i) EXPECT_EQ(unicode.ClassAt(others, i), 0) << i;
  EXPECT_EQ(unicode.EndOfRun(u"a-٣\U0001D7D8\U0001F600", 0), 5U);
  for (const char16_t vowel : u"áőūịı") EXPECT_EQ(unicode.IsLowerVowel(vowel), vowel != 0);
  for (const char16_t other : u"ýжćǹŵ") EXPECT_FALSE(unicode.IsLowerVowel(other));
}

TEST(Alphabet, OfUnicodeSortsByLettersWithoutMarks) {
  const std::pair<std::u16string, std::u16string> rows[] = {{u"Łódź", u"łodz"},
                                                            {u"ǟ", u"a"},
                                                            {u"ǽ", u"ae"},
                                                            {u"Ếch", u"ech"},
                                                            {u"Ёлка", u"елка"},
                                                            {u"Ώρα", u"ωρα"},
                                                            {u"हिन्दी", u"हनद"},
                                                            {u"İstanbul", u"istanbul"},
                                                            {u"ẞ", u"ß"},
                                                            {u"Ǆ", u"ǆ"},
                                                            {u"\U00010400", u"\U00010428"}};
  for (const auto& [word, key] : rows)
    EXPECT_EQ(unicode.SortKey(word), key) << unicode.Encode(word);
}

TEST(Alphabet, KnowsAllCapitalsOfALetter) {
  for (char16_t ch = 0; ch < 0xD800; ++ch) {
    const char16_t lower = unicode.ToLowerCase(ch);
    const bool isKnown = ch == lower || ch == unicode.ToUpperCase(lower) ||
                         unicode.OtherCapitalsOf(lower).find(ch) != std::u16string_view::npos;
    ASSERT_TRUE(isKnown) << int{ch};
  }
  EXPECT_EQ(unicode.OtherCapitalsOf(u'i'), u"İ");
}

TEST(Alphabet, ComposesWhatIsTyped) {
  EXPECT_EQ(unicode.Typed("cafe\u0301"), u"café");
  EXPECT_EQ(latin.Typed("cafe\u0301"), u"cafe\u0301");
}

TEST(Alphabet, TakesAccentsOffLetters) {
  EXPECT_EQ(latin.WithoutAccents(u"ŒtéŽ"), u"œtež");
  EXPECT_EQ(unicode.WithoutAccents(u"ŒtéŽ"), u"oetez");
}

TEST(Alphabet, CountsTheCodeUnitsOfBytes) {
  for (const std::u16string text : {u"", u"aé", u"ð\u00A8é", u"łЖ漢\U00010330b"}) {
    EXPECT_EQ(unicode.CodeUnitsIn(unicode.Encode(text)), text.size());
    EXPECT_EQ(latin.CodeUnitsIn(latin.Encode(text)), latin.Encode(text).size());
  }
}

}  // namespace
}  // namespace quorvel
