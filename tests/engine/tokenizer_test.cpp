#include "engine/tokenizer.h"

#include <gtest/gtest.h>

#include "engine/index_file.h"
#include "naive/naive_forms.h"
#include "support/made_texts.h"
#include "support/scanned_text.h"

namespace quorvel {
namespace {

using Text = std::u16string;

// All that a table holds.
std::string Describe(const ListedWords& words) {
  return std::to_string(words.counts.includedCount) + " words, " +
         std::to_string(words.counts.totalOccurrences) + " places" + IndexFileBytes(words, "", 0);
}

std::string FastTable(const Text& text, const ConcordanceSettings& settings) {
  SilentProgress nobody;
  return Describe(*ScanText(text, settings, nobody).words);
}

std::string NaiveTable(const Text& text, const ConcordanceSettings& settings) {
  return Describe(naive::MakeWordTable(naive::BlankDoubleHyphens(text), settings));
}

TEST(Tokenizer, OddWordsAreThoseOfTheNaiveForm) {
  const Text letters30 = u"abcdefghijklmnopqrstuvwxyzabcd";
  const std::pair<const char*, Text> rows[] = {
      {"hyphens at the ends", u"-known- -known. ab-s x"},
      {"tails of contraction stems", u"John's don't ren OULDN isn wasn sn wren doesn hadn didn."},
      {"crude plurals", u"its news was this glass physics ALWAYS always DOGS Dogs cafés cafÉs."},
      {"words kept whole",
       u"Maths stats arms Dickens perhaps harms PHYSics MATHs DOGs skys bœs 12s."},
      {"Roman letters", u"MIX civic mill did civil Dill VIVID mix-i dim vim cid lid livid."},
      {"length 2, 30 and 31", u"ab " + letters30 + u" " + letters30 + u"e " + letters30 + u"s."},
      {"double hyphens", u"--one--two a--bcd at <!--one--> two-->six ab----> ab--->c."},
  };
  for (const auto& [name, text] : rows) {
    EXPECT_EQ(FastTable(text, {}), NaiveTable(text, {})) << name;
  }
}

TEST(Tokenizer, PlacesAreWhereTheScanStandsLessTheWord) {
  SilentProgress nobody;
  const Listing listing = ScanText(u"cats. -cat- cats", {}, nobody);
  EXPECT_EQ(TableOf(listing).entries.at(0).positions, (std::vector<std::int32_t>{2, 9, 15}));
}

TEST(Tokenizer, StopsAfterTheWordAtHand) {
  SilentProgress stopped;
  stopped.RequestStop();
  const Listing listing = ScanText(u"on . harbour house", {}, stopped);
  const std::vector<WordEntry>& entries = TableOf(listing).entries;
  EXPECT_TRUE(entries.size() == 1 && entries[0].word == u"harbour");
}

TEST(WordTable, PositionWidthByLogarithms) {
  EXPECT_EQ(PositionWidth(0), 1);
  EXPECT_EQ(PositionWidth(1000), 3);
  EXPECT_EQ(PositionWidth(1001), 4);
  EXPECT_EQ(PositionWidth(1000000), 6);
}

TEST(Tokenizer, SameTableAsTheNaiveForm) {
  const std::vector<std::vector<Text>> alphabets = {
      {u"-", u"--", u"<!--", u"-->", u"!", u">", u"a", u"b", u" ", u"cat"},
      {u"couldn", u"ren", u"'", u"s", u"S", u"t", u"x", u"N", u"o", u" ", u"-", u"'s ", u"n't "},
      {u"dog", u"Dogs", u"ics", u"maths", u"s", u"ss", u"é", u"É", u"e", u" ", u"-", u"1", u"20"},
      {u"I", u"v", u"X", u"mi", u"dill", u"civ", u"il", u"d", u" ", u" . ", u"-"},
      {u"Mueller ", u"Müller ", u"muller ", u"MÜLLER ", u"ßa",  u"ssa ", u"Œ",
       u"œ",        u"oe ",     u"Ðo ",     u"ðo ",     u"Do ", u"Ž",    u"ž",
       u"šo ",      u"Ÿo ",     u"þo ",     u"Þo ",     u"Æn ", u"æn ",  u"aen "},
      {u"The ", u"the ", u"of ", u"sea", u"  ", u" / ", u"abcdefghijklmnopq", u"\u00a0", u".",
       u"\t"}};
  std::mt19937 random(20261121);
  for (int round = 0; round < 8000; ++round) {
    const std::size_t mostParts = round % 100 == 0 ? 300 : 24;
    const Text text = RandomText(alphabets[random() % alphabets.size()], mostParts, random);
    ConcordanceSettings settings;
    settings.allowWordsWithHyphens = random() % 2 == 0;
    settings.allowWordsWithNumerals = random() % 2 == 0;
    settings.ignoreInfrequentWords = random() % 2 == 0;
    if (random() % 2 == 0) settings.extraStopWords = "dog the";
    ASSERT_EQ(FastTable(text, settings), NaiveTable(text, settings))
        << "round " << round << ", text " << testing::PrintToString(text);
  }
}

}  // namespace
}  // namespace quorvel
