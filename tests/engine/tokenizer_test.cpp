#include "engine/tokenizer.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "naive/naive_forms.h"
#include "support/made_texts.h"
#include "support/scanned_text.h"
#include "support/scripted_interface.h"
#include "util/ansi.h"

namespace quorvel {
namespace {

using Text = std::u16string;

Text Number(std::int64_t number) {
  const std::string digits = std::to_string(number);
  return Text(digits.begin(), digits.end());
}

// The words of a scanned text in text order, each with its place: "hello@1 world@8".
Text WordsInTextOrder(const WordTable& table) {
  std::vector<std::pair<std::int32_t, Text>> occurrences;
  for (const WordEntry& entry : table.entries) {
    for (std::int32_t position : entry.positions) occurrences.emplace_back(position, entry.word);
  }
  std::sort(occurrences.begin(), occurrences.end());
  Text result;
  for (const auto& [position, word] : occurrences) {
    result += (result.empty() ? u"" : u" ") + word + u"@" + Number(position);
  }
  return result;
}

// All that a table holds, a line for each entry.
Text Describe(const WordTable& table) {
  Text result = Number(table.positionWidth) + u" digits, head " + Number(table.frequencyHead) +
                u", " + Number(table.includedCount) + u" included with " +
                Number(table.totalOccurrences) + u"\n";
  for (const WordEntry& entry : table.entries) {
    result += entry.word + u" (" + entry.sortKey + u") " + Number(entry.frequencyPrev) + u"<>" +
              Number(entry.frequencyNext) + (entry.include ? u" yes" : u" no");
    for (std::int32_t position : entry.positions) result.append(u" ").append(Number(position));
    result += u"\n";
  }
  return result;
}

Text FastTable(const Text& text, const ConcordanceSettings& settings) {
  ScriptedInterface ui;
  return Describe(ScanText(text, settings, ui).table);
}

Text NaiveTable(const Text& text, const ConcordanceSettings& settings) {
  return Describe(naive::MakeWordTable(naive::BlankDoubleHyphens(text), settings));
}

TEST(Tokenizer, WordsAndTheirPlaces) {
  const Text letters30 = u"abcdefghijklmnopqrstuvwxyzabcd";
  const std::tuple<const char*, Text, Text> rows[] = {
      {"a word that ends the text stands one too far right", u"hello world", u"hello@1 world@8"},
      {"a word that a full stop ends stands right", u"hello world.", u"hello@1 world@7"},
      {"a plural moves right by its s, and by one more at the end", u"cats. cats", u"cat@2 cat@9"},
      {"trailing hyphens move right, leading ones do not", u"-known- -known.", u"known@3 known@10"},
      {"a hyphen before the plural s stays", u"ab-s x", u"ab-@2"},
      {"apostrophes divide", u"John's couldn't don't.", u"John@1 don@17"},
      {"tails of contraction stems, in any case", u"ren OULDN isn wasn sn wren.", u"wren@23"},
      {"crude plurals", u"its news was this glass physics ALWAYS always DOGS Dogs.",
       u"new@6 was@10 this@14 glass@19 physics@25 ALWAYS@33 always@40 DOGS@47 Dog@53"},
      {"accented vowels keep the s, upper-case ones do not", u"cafés cafÉs rhys.",
       u"cafés@1 cafÉ@8 rhy@14"},
      {"words kept whole", u"Maths stats arms Dickens perhaps harms politics.",
       u"Maths@1 stats@7 arms@13 Dickens@18 perhaps@26 harm@35 politics@40"},
      {"Roman letters", u"MIX civic mill did civil Dill VIVID mix-i.",
       u"civil@20 Dill@26 VIVID@31 mix-i@37"},
      {"length 2, 30 and 31", u"ab " + letters30 + u" " + letters30 + u"e.", letters30 + u"@4"},
      {"length 31 less its plural s", letters30 + u"s.", letters30 + u"@2"},
      {"only blanks are skipped in one go", u"one / two\tsix\x00a0ten\x00d7mid.",
       u"one@1 two@7 six@11 ten@15 mid@19"},
      {"double hyphens divide, except in the first two characters", u"--one--two a--bcd.",
       u"one@3 two@8 bcd@15"},
      {"comment marks stay and cling to words", u"at <!--one--> two-->six.",
       u"one@10 two@17 six@21"},
  };
  for (const auto& [name, text, expected] : rows) {
    ScriptedInterface ui;
    EXPECT_EQ(WordsInTextOrder(ScanText(text, {}, ui).table), expected) << name;
    EXPECT_EQ(FastTable(text, {}), NaiveTable(text, {})) << name;
  }
}

TEST(Tokenizer, BlankedDoubleHyphens) {
  const std::pair<Text, Text> rows[] = {{u"--a--b", u"--a  b"},
                                        {u"a----b", u"a--  b"},
                                        {u"ab---->", u"ab  -->"},
                                        {u"ab--->c", u"ab  ->c"},
                                        {u"<!-----", u"<!--  -"}};
  for (const auto& [text, expected] : rows) {
    Text blanked = text;
    BlankDoubleHyphens(blanked);
    EXPECT_EQ(blanked, expected);
    EXPECT_EQ(naive::BlankDoubleHyphens(text), expected);
  }
}

TEST(Tokenizer, StopsAfterTheWordAtHand) {
  ScriptedInterface ui;
  ui.RequestStop();
  EXPECT_EQ(WordsInTextOrder(ScanText(u"on . harbour house", {}, ui).table), u"harbour@6");
}

// More words than the look-up by spelling has room for at first.
TEST(WordTable, HoldsManyWordsOnceEach) {
  WordTable table;
  const auto wordOf = [](std::int32_t n) { return Text(u"w") + DecodeAnsi(std::to_string(n)); };
  for (const std::int32_t offset : {1, 2}) {
    for (std::int32_t n = 0; n < 20000; ++n)
      AddWordToList(table, EntryOf(table, wordOf(n)), offset);
  }
  ASSERT_EQ(table.WordCount(), 20000);
  for (std::int32_t n = 0; n < 20000; ++n) {
    const WordEntry& entry = table.entries[static_cast<std::size_t>(n)];
    EXPECT_TRUE(entry.word == wordOf(n) && entry.Count() == 2) << n;
  }
}

TEST(WordTable, PositionWidthByLogarithms) {
  const std::pair<std::size_t, int> rows[] = {{0, 1},     {1, 1},      {9, 1},      {10, 2},
                                              {999, 3},   {1000, 3},   {1001, 4},   {10000, 5},
                                              {99999, 5}, {100000, 6}, {1000000, 6}};
  for (const auto& [length, expected] : rows) EXPECT_EQ(PositionWidth(length), expected) << length;
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
  for (int round = 0; round < 40000; ++round) {
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
