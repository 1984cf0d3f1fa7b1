#include "util/characters.h"

#include <gtest/gtest.h>

#include "util/make_singular.h"

namespace quorvel {
namespace {

using Text = std::u16string;

TEST(Characters, Classes) {
  const Text vowels = u"aéæø";
  const Text letters = vowels + u"AyÉœýÿŸßšðÞ";
  const Text wordCharacters = letters + u"09-";
  const Text others = Text(u"žŽ×÷ªµƒ '@[/:\xA0’āя") + u'\0';
  for (const char16_t ch : wordCharacters + others) {
    const auto code = static_cast<unsigned>(ch);
    EXPECT_EQ(IsLetter(ch), letters.find(ch) != Text::npos) << code;
    EXPECT_EQ(IsWordCharacter(ch), wordCharacters.find(ch) != Text::npos) << code;
    EXPECT_EQ(IsLowerVowel(ch), vowels.find(ch) != Text::npos) << code;
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
  EXPECT_EQ(LetterRunLength(u"word", 1), 5u);
  EXPECT_EQ(LetterRunLength(u"word.", 1), 4u);
  EXPECT_EQ(LetterRunLength(u"a 3-d", 3), 4u);
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
