#include "util/characters.h"

#include <gtest/gtest.h>

#include "util/make_singular.h"

namespace quorvel {
namespace {

using Text = std::u16string;

TEST(Characters, Classes) {
  struct Row {
    char16_t ch;
    bool letter;
    bool wordCharacter;
    bool lowerVowel;
  };
  const Row rows[] = {
      {u'a', true, true, true},    {u'A', true, true, false},    {u'y', true, true, false},
      {u'é', true, true, true},    {u'É', true, true, false},    {u'æ', true, true, true},
      {u'œ', true, true, false},   {u'ø', true, true, true},     {u'ý', true, true, false},
      {u'ÿ', true, true, false},   {u'Ÿ', true, true, false},    {u'ß', true, true, false},
      {u'š', true, true, false},   {u'ð', true, true, false},    {u'Þ', true, true, false},
      {u'ž', false, false, false}, {u'Ž', false, false, false},  {u'×', false, false, false},
      {u'÷', false, false, false}, {u'ª', false, false, false},  {u'µ', false, false, false},
      {u'ƒ', false, false, false}, {u'0', false, true, false},   {u'9', false, true, false},
      {u'-', false, true, false},  {u' ', false, false, false},  {u'\'', false, false, false},
      {u'@', false, false, false}, {u'[', false, false, false},  {u'/', false, false, false},
      {u':', false, false, false}, {u'\0', false, false, false}, {u'\xA0', false, false, false},
      {u'’', false, false, false}, {u'ā', false, false, false},  {u'я', false, false, false}};
  for (const Row& row : rows) {
    const auto code = static_cast<unsigned>(row.ch);
    EXPECT_EQ(IsLetter(row.ch), row.letter) << code;
    EXPECT_EQ(IsWordCharacter(row.ch), row.wordCharacter) << code;
    EXPECT_EQ(IsLowerVowel(row.ch), row.lowerVowel) << code;
  }
}

TEST(Characters, AsManyAsTheTablesHold) {
  int letters = 0;
  int vowels = 0;
  for (char32_t ch = 0; ch <= 0xFFFF; ++ch) {
    letters += IsLetter(static_cast<char16_t>(ch)) ? 1 : 0;
    vowels += IsLowerVowel(static_cast<char16_t>(ch)) ? 1 : 0;
  }
  EXPECT_EQ(letters, 26 + 34 + 26 + 33);
  EXPECT_EQ(vowels, 5 + 25);
}

TEST(Characters, Mappings) {
  struct Row {
    Text text;
    Text lower;
    Text key;
    Text upper;
  };
  const Row rows[] = {{u"", u"", u"", u""},
                      {u"ŠÉÆ", u"šéæ", u"SEAe", u"ŠÉÆ"},
                      {u"ŒŸÞŽ", u"œÿþž", u"OeYÞŽ", u"ŒŸÞŽ"},
                      {u"Müßig", u"müßig", u"Muessig", u"MÜßIG"},
                      {u"ðÐ", u"ðð", u"ðD", u"ÐÐ"},
                      {u"œuvre", u"œuvre", u"œuvre", u"ŒUVRE"},
                      {u"þÿžß", u"þÿžß", u"þyžss", u"ÞŸžß"},
                      {u"ÄÖÜÀÇÑØÝ", u"äöüàçñøý", u"AeOeUeACNOY", u"ÄÖÜÀÇÑØÝ"},
                      {u"äöüåçñøý", u"äöüåçñøý", u"aeoeueacnoy", u"ÄÖÜÅÇÑØÝ"},
                      {u"3D-×÷@[`{", u"3d-×÷@[`{", u"3D-×÷@[`{", u"3D-×÷@[`{"}};
  for (const Row& row : rows) {
    Text upper = row.text;
    for (char16_t& ch : upper) ch = ToUpperCase(ch);
    EXPECT_EQ(upper, row.upper);
    EXPECT_EQ(ToLowerCase(row.text), row.lower);
    EXPECT_EQ(FoldForKey(row.text), row.key);
    EXPECT_TRUE(EqualsInLowerCase(row.text, row.lower));
  }
  EXPECT_FALSE(EqualsInLowerCase(u"word", u"words"));
  EXPECT_FALSE(EqualsInLowerCase(u"words", u"word"));
}

TEST(Characters, RunAtTheEndOfTheTextCountsOneMore) {
  EXPECT_EQ(WordRunLength(u"word", 1), 5u);
  EXPECT_EQ(WordRunLength(u"word.", 1), 4u);
  EXPECT_EQ(WordRunLength(u"a 3-d", 3), 4u);
}

TEST(MakeSingular, ByItsEndingAlone) {
  const std::pair<Text, Text> rows[] = {
      {u"", u""},           {u"s", u"s"},         {u"as", u"as"},      {u"ts", u"ts"},
      {u"its", u"it"},      {u"news", u"new"},    {u"ics", u"ics"},    {u"PHYSics", u"PHYSics"},
      {u"docs", u"doc"},    {u"MATHs", u"MATHs"}, {u"harms", u"harm"}, {u"it's", u"it's"},
      {u"glass", u"glass"}, {u"DOGS", u"DOGS"},   {u"DOGs", u"DOG"},   {u"DAs", u"DA"},
      {u"skys", u"sky"},    {u"bœs", u"bœ"},      {u"12s", u"12"},     {u"a-s", u"a-"}};
  for (const auto& [word, expected] : rows) EXPECT_EQ(MakeSingular(word), expected);
}

}  // namespace
}  // namespace quorvel
