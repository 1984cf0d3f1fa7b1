#include "engine/table_fit.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "support/latin.h"
#include "support/made_texts.h"
#include "support/scanned_text.h"

namespace quorvel {

using Text = std::u16string;

// Changes one place of one word, or the word. The table must fit only if a scan finds the same.
TEST(TableFit, IsWhatAScanWouldGive) {
  const std::vector<std::vector<Text>> alphabets = {
      {u"cats ", u"dog-", u"-", u"'s ", u"bed", u". ", u"été ", u"9"},
      {u"harbour ", u"harbours ", u"Harbour", u"-", u" / ", u"TV-s ", u"1990", u"1990s ",
       u"\u00a0"},
      {u"abc", u"abd ", u"bcd", u" ", u"mix ", u"aaa ", u"of ", u"abcdefghijklmnop"}};
  std::mt19937 random(7);
  for (int round = 0; round < 2000; ++round) {
    const auto document = DocumentOf(RandomText(alphabets[random() % 3], 16, random));
    SilentProgress nobody;
    WordTable table = *ScanWords(document, nullptr, nobody).table;
    const IncludeFlags include(table.entries.size(), true);
    EXPECT_TRUE(TableFitsText(table, include, document->documentText, latin));
    if (table.entries.empty()) continue;
    std::map<Text, std::vector<Position>> places;
    for (const WordEntry& entry : table.entries) places[entry.word] = entry.positions;
    WordEntry& entry = table.entries[random() % table.entries.size()];
    switch (random() % 3) {
      case 0:
        entry.word[random() % entry.word.size()] ^= 1;
        break;
      case 1:
        entry.word += u"s-e"[random() % 3];
        break;
      default:
        entry.positions.back() = entry.positions.back() + 1 + random() % 5;
        break;
    }
    ASSERT_EQ(TableFitsText(table, include, document->documentText, latin),
              std::ranges::includes(places[entry.word], entry.positions))
        << round << testing::PrintToString(document->documentText);
  }
}

// For a word that is not listed, only the first and the last place are checked.
TEST(TableFit, LooksForWhatAScanNeverGives) {
  const struct {
    const char* name;
    Text text, word;
    std::vector<std::int32_t> places;
    bool fits = false, listed = true;
  } rows[] = {
      {"two letters", u"of so.", u"of", {1}},
      {"no letter", u"the 1990 ..", u"1990", {5}},
      {"one that lost its plural", u"the 1990s .", u"1990", {6}, true},
      {"one of many places, not listed", u"sea sea seA sea.", u"sea", {1, 5, 9, 13}, true, false},
      {"the first, not listed", u"seA sea sea sea.", u"sea", {1, 5, 13}, false, false},
      {"the last, not listed", u"sea sea sea seA.", u"sea", {1, 5, 13}, false, false},
      {"part of a word", u"undersea.", u"sea", {6}},
      {"one place too early", u"the sea it", u"sea", {4}},
      {"behind the first letter of one", u"asea.", u"sea", {2}},
      {"at the end", u"the sea", u"sea", {6}, true},
      {"far behind the end", u"the sea", u"sea", {1000000}},
      {"a word behind it", u"sea the", u"sea", {1}}};
  EXPECT_FALSE(TableFitsText({}, {}, u"sea", latin)) << "a word, but none in the table";
  for (const auto& [name, text, word, places, fits, listed] : rows) {
    WordTable table = MadeTable({{word, places}});
    table.positionWidth = PositionWidth(text.size());
    EXPECT_EQ(TableFitsText(table, {listed}, text, latin), fits) << name;
    table.positionWidth += 1;
    EXPECT_FALSE(TableFitsText(table, {listed}, text, latin)) << name << ", other width";
  }
}

}  // namespace quorvel
