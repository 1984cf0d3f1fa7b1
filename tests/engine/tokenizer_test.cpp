#include "engine/tokenizer.h"

#include <gtest/gtest.h>

#include "engine/index_file.h"
#include "naive/naive_forms.h"
#include "support/latin.h"
#include "support/made_texts.h"
#include "support/scanned_text.h"
#include "support/scripted_conversation.h"
#include "util/utf8.h"

namespace quorvel {
namespace {

using Text = std::u16string;

// The whole contents of a table.
std::string Describe(const ListedWords& words) {
  return std::to_string(words.counts.includedCount) + " words, " +
         std::to_string(words.counts.totalOccurrences) + " places" + IndexFileBytes(words, "", 0);
}

KeywordLists Keywords(const SortedWords& ofFile, std::string_view extra) {
  ConcordanceSettings settings;
  settings.allowWordsWithNumerals = true;
  return {ofFile, *ExtraKeywordsOf(extra, settings)};
}

TEST(Tokenizer, ShowsHowFarItIsUntilAStop) {
  const KeywordLists last = Keywords({u"walk"}, "");
  const struct {
    const char* name;
    Text part;
    int times;
    const KeywordLists* sought;
    std::size_t bars;
    bool yields;
    std::size_t wordsAfterStop;
  } rows[] = {{"words", u"harbour ", 20000, nullptr, 42, true, 1},
              {"words of a short text", u"harbour house ", 731, nullptr, 2, false, 1},
              {"words of 10240 characters", u"harbour and the houses ", 445, nullptr, 42, false, 1},
              {"short words", u"it is ", 3000, nullptr, 3, true, 1},
              {"a search", u"a ", 2200000, &last, 42, true, 0}};
  for (const auto& [name, part, times, sought, bars, yields, wordsAfterStop] : rows) {
    ScriptedConversation progress;
    Text text;
    for (int i = 0; i < times; ++i) text += part;
    text += u"walk ";
    WordTable table;
    GetWords(text, {0, text.size()}, latin, table, progress, sought);
    EXPECT_EQ(progress.bars.size(), bars) << name;
    EXPECT_EQ(progress.yields > 0, yields) << name << " lets events run in each long loop";
    EXPECT_EQ(progress.WordsFound() + 1, table.WordCount()) << name;
    EXPECT_EQ(table.entries.back().word, u"walk") << name;
    progress.RequestStop();
    progress.yields = 0;
    WordTable stopped;
    GetWords(text, {0, text.size()}, latin, stopped, progress, sought);
    EXPECT_EQ(stopped.entries.size(), wordsAfterStop) << name;
    EXPECT_LE(progress.yields, 1) << name << " are walked over after the stop";
    ScriptedConversation user;
    user.stopAtYield = 1;
    WordTable cut;
    GetWords(text, {0, text.size()}, latin, cut, user, sought);
    EXPECT_EQ(user.StopRequested(), yields) << name;
    EXPECT_EQ(cut.entries.size(), yields ? wordsAfterStop : table.entries.size()) << name;
  }
}

// What an apostrophe leaves ("John's", "don't") is no word, at any length limit.
TEST(Tokenizer, GivesNoWordForTheRestAfterAnApostrophe) {
  const std::pair<const char16_t*, const char16_t*> rows[] = {
      {u"s", u""}, {u"T", u""}, {u"-t-", u""}, {u"x", u"x"}, {u"st", u"st"}, {u"ts", u"ts"}};
  for (const auto& [token, word] : rows) {
    EXPECT_EQ(WordOfToken(token, latin), word) << EncodeUtf8(token);
  }
}

// A search examines only tokens that begin like a keyword. This must not change the result.
TEST(Tokenizer, FindsForASearchWhatAScanOfAllFinds) {
  const std::vector<Text> parts = {
      u"-", u" ",   u"cat",  u"Cats",   u"KNOWN", u"unknown ", u"1990", u"s",  u"TV-s ", u"tvs",
      u"É", u"té ", u"a-b-", u"co-op ", u"œuf ",  u"ŒUF ",     u"c4",   u". ", u"caàt "};
  const char* const extras[] = {"",     "cat*",        "?at",    "*n", "1990 tv",
                                "+sea", "a-b ca co*p", "c#* xy", "ca*"};
  SilentProgress nobody;
  ConcordanceSettings settings;
  settings.mode = Mode::search;
  std::mt19937 random(4);
  for (int round = 0; round < 2000; ++round) {
    const Text text = RandomText(parts, 40, random);
    const KeywordLists keywords =
        Keywords({u"known", u"été", u"œuf"}, extras[random() % std::size(extras)]);
    const auto found = [&](const KeywordLists* sought) {
      return Composed(ListingOf(ScanWords(DocumentOf(text), sought, nobody), settings, keywords),
                      nobody);
    };
    ASSERT_EQ(found(&keywords), found(nullptr)) << round << testing::PrintToString(text);
  }
}

TEST(Tokenizer, SameTableAsTheNaiveForm) {
  const std::vector<std::vector<Text>> alphabets = {
      {u"-", u"--", u"<!--", u"-->", u"!", u">", u"a", u"b", u" ", u"cat"},
      {u"couldn", u"ren", u"'", u"s", u"S", u"t", u"x", u"N", u"o", u" ", u"-", u"'s ", u"n't "},
      {u"dog", u"Dogs", u"ics", u"maths", u"s", u"ss", u"é", u"É", u"e", u" ", u"-", u"1", u"20"},
      {u"abcdefghijklmnopqrstuvwxyzabcd", u"e", u"s", u" ", u"-", u"y"},
      {u"are", u"could", u"did", u"doe", u"s", u"ha", u"d", u"i", u"sh", u"ould", u"wa", u"we",
       u"r", u"n", u"N", u"X", u" ", u"' "},
      {u"gas", u"thi", u"plu", u"maths", u"Stats", u"ARMs", u"dickens", u"always", u"perhaps",
       u"phys", u"ics", u"S", u"s ", u"' ", u"-s ", u"it", u"é"},
      {u"dim ", u"Mid ", u"viM ", u"cid ", u"lid ", u"livid ", u"vivid ", u"civil ", u"dill ",
       u"didi ", u"m", u"MCM ", u"xil "},
      {u"I", u"v", u"X", u"mi", u"dill", u"civ", u"il", u"d", u" ", u" . ", u"-"},
      {u"Mueller ", u"Müller ", u"muller ", u"MÜLLER ", u"ßa",  u"ssa ", u"Œ",
       u"œ",        u"oe ",     u"Ðo ",     u"ðo ",     u"Do ", u"Ž",    u"ž",
       u"šo ",      u"Ÿo ",     u"þo ",     u"Þo ",     u"Æn ", u"æn ",  u"aen "},
      {u"The ", u"the ", u"of ", u"sea", u"  ", u" / ", u"abcdefghijklmnopq", u"\u00a0", u".",
       u"\t"}};
  SilentProgress nobody;
  std::mt19937 random(20261121);
  for (int round = 0; round < 5000; ++round) {
    const std::size_t mostParts = round % 100 == 0 ? 300 : 24;
    const Text text = RandomText(alphabets[random() % alphabets.size()], mostParts, random);
    ConcordanceSettings settings;
    settings.allowWordsWithHyphens = random() % 2 == 0;
    settings.allowWordsWithNumerals = random() % 2 == 0;
    settings.ignoreInfrequentWords = random() % 2 == 0;
    if (random() % 2 == 0) settings.extraStopWords = "dog the";
    const Listing listing = ScanText(text, settings, nobody);
    ASSERT_LE(IndexFileBytes(*listing.words, std::string(32, 'A'), 0).size(),
              LongestIndexFile(text.size()));
    ASSERT_EQ(Describe(*listing.words),
              Describe(naive::MakeWordTable(naive::BlankDoubleHyphens(text), settings)))
        << "round " << round << ", text " << testing::PrintToString(text);
  }
}

}  // namespace
}  // namespace quorvel
