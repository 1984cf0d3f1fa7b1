// Both kinds of word files: what is read of them and what the user is told.

#include "lists/word_file.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "lists/keywords.h"
#include "lists/stop_words.h"
#include "support/made_texts.h"
#include "support/scripted_interface.h"
#include "support/test_folder.h"
#include "util/ansi.h"

namespace quorvel {
namespace {

std::string Joined(const std::vector<std::u16string>& words) {
  std::string text;
  for (const std::u16string& word : words) text += EncodeUtf8(word) + "|";
  return text;
}

TEST(WordFiles, GiveTheirWords) {
  const struct {
    const char* name;
    std::string bytes;
    std::string stopWords;
    std::string keywords;
  } rows[] = {{"sorted, several in a line", "the  a\r\n an\r\n", "a|an|the|", "a|an|the|"},
              {"CR alone", "the\ra\r\r", "a|the|", "a|the|"},
              {"LF alone in a file without CR", "the\n\na b\n", "a|b|the|", "a|b|the|"},
              {"LF inside a line", "the\na\r\nan\r\n", "an|the\na|", "an|"},
              {"control characters around lines", "\t the\x01\r\n\x1F\r\n", "the|", "the|"},
              {"a tab separates nothing", "the\ta an\r\n", "an|the\ta|", "an|"},
              {"duplicates stay", "the\r\nThe\r\nthe\r\n", "The|the|the|", "the|the|the|"},
              {"comments only", "/* a\r\nb */\r\n/* c */\r\n\r\n", "", ""},
              {"three characters open and close", "ab\r\n/*/\r\nbc\r\n", "ab|bc|", "ab|bc|"},
              {"comment inside a block closes it", "/* a\r\nb\r\n/* c */\r\nd\r\n", "d|", "d|"},
              {"close without open", "a\r\nb */\r\nc\r\n", "a|c|", "a|c|"},
              {"never closed", "a b\r\n /* c\r\nd\r\n", "a|b|", "a|b|"},
              {"UTF-8 and its mark", "\xEF\xBB\xBF\xC3\xA9t\xC3\xA9 d\xC3\xA9j\xC3\xA0\r\n",
               "déjà|été|", "déjà|été|"},
              {"Windows-1252", "\xE9t\xE9 \x8Cuvre\r\n", "été|Œuvre|", "été|œuvre|"},
              {"plain words only", "colou?r new-york\r\n42 John's walk a+b\r\n",
               "42|John's|a+b|colou?r|new-york|walk|", "walk|"},
              {"keywords in lower case without plural", "Walk DOGS dogs news\r\n",
               "DOGS|Walk|dogs|news|", "dog|dog|new|walk|"}};
  for (const auto& [name, bytes, stopWords, keywords] : rows) {
    const TestFolder folder;
    ScriptedInterface ui;
    const std::string path = folder.Write("words.txt", bytes);
    StopWordList list;
    KeywordLists lists;
    EXPECT_TRUE(ReadStopWordsFile(path, list, ui) && list.loaded) << name;
    EXPECT_TRUE(ReadKeywordsFile(path, lists, ui) && lists.loaded) << name;
    EXPECT_EQ(Joined(list.words), stopWords) << name;
    EXPECT_EQ(Joined(lists.fileKeywords), keywords) << name;
    EXPECT_EQ(ui.Said(), "") << name;
  }
}

TEST(WordFiles, HoldText) {
  const TestFolder folder;
  ScriptedInterface ui;
  StopWordList list = {{u"old"}, {}, true};
  const std::string path = folder.Write("w.txt", "\xFF\xFEtext");
  EXPECT_FALSE(ReadStopWordsFile(path, list, ui) || list.loaded);
  EXPECT_EQ(ui.Said(path), "Fatal error: File @\r\nis a Unicode file but not UTF-8 encoded.\n");
}

TEST(WordFiles, CanBeStoppedWhereTheyAreLong) {
  for (const bool isLong : {false, true}) {
    const TestFolder folder;
    const std::string path = folder.Write("a.txt", Repeated("ab\r\n", isLong ? 5121 : 5120));
    StopWordList list;
    KeywordLists lists;
    ScriptedInterface ui;
    ui.stopAtYield = 1;
    EXPECT_FALSE(ReadStopWordsFile(path, list, ui));
    EXPECT_EQ(ui.output, "Reading stop words was stopped.");
    ui.yields = 0;
    EXPECT_FALSE(ReadKeywordsFile(path, lists, ui));
    EXPECT_EQ(ui.output, "Reading search words was stopped.");
    EXPECT_FALSE(list.loaded || lists.loaded);
    EXPECT_EQ(ui.stopOffers,
              isLong ? (std::vector<bool>{true, false, true, false}) : std::vector<bool>());
    EXPECT_EQ(ui.sets.front(), "Reading stop words ...");
  }
}

TEST(WordFiles, ShowTheBeginningOfALongList) {
  for (const int count : {1, 30, 31}) {
    StopWordList list;
    std::string shown;
    for (int i = 0; i < count; ++i) {
      list.words.emplace_back(1, static_cast<char16_t>(u'A' + i));
      if (i < 30) shown += EncodeUtf8(list.words.back()) + "\r\n";
    }
    ScriptedInterface ui;
    ListStopWords(list, ui);
    const std::string expected = "Stop words: There are " + std::to_string(count) +
                                 " stop words.\r\n\r\n" + shown +
                                 (count > 30 ? "\r\nand more\n" : "\n");
    EXPECT_EQ(ui.Said(), count < 2 ? "" : expected);
  }
}

}  // namespace
}  // namespace quorvel
