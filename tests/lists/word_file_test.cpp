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
              {"any order", "walk\r\nant\r\ncat\r\n", "ant|cat|walk|", "ant|cat|walk|"},
              {"words behind a block", "/* a\r\nb */\r\nc\r\n", "c|", "c|"},
              {"duplicates stay", "the\r\nThe\r\nthe\r\n", "The|the|the|", "the|the|the|"},
              {"comments only", "/* a\r\nb */\r\n/* c */\r\n\r\n", "", ""},
              {"one-line comment", "a1\r\n/* note */\r\nbc\r\n", "a1|bc|", "bc|"},
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
               "DOGS|Walk|dogs|news|", "dog|dog|new|walk|"},
              {"bytes of any kind", std::string("\0\xFF*\x80\r\n/\x1A ab\r\n", 13), "/\x1A|ab|ÿ*€|",
               "ab|"}};
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

TEST(WordFiles, SayWhatIsWrong) {
  const struct {
    const char* name;
    std::string bytes;
    const char* stopWordsSaid;
    const char* keywordsSaid;
  } rows[] = {{"", "", "", ""},
              {"missing.txt", "", "Stop words: Stop words file not found:\r\n@\n",
               "Search words: Keywords file not found:\r\n@\n"},
              {"short.txt", "the\n", "Fatal error: File @\r\ncontains only from 1 to 4 bytes.\n",
               "Fatal error: File @\r\ncontains only from 1 to 4 bytes.\n"},
              {"unicode.txt", "\xFF\xFEtext",
               "Fatal error: File @\r\nis a Unicode file but not UTF-8 encoded.\n",
               "Fatal error: File @\r\nis a Unicode file but not UTF-8 encoded.\n"}};
  for (const auto& [name, bytes, stopWordsSaid, keywordsSaid] : rows) {
    const TestFolder folder;
    const bool named = *name != '\0';
    const std::string path = named ? folder.Path(name) : "";
    if (!bytes.empty()) (void)folder.Write(name, bytes + "xx");
    if (std::string(name) == "short.txt") (void)folder.Write(name, bytes);
    ScriptedInterface ui;
    StopWordList list = {{u"old"}, {}, true};
    EXPECT_FALSE(ReadStopWordsFile(path, list, ui));
    EXPECT_EQ(ui.Said(path), stopWordsSaid);
    EXPECT_FALSE(list.loaded);
    ui.questions.clear();
    KeywordLists lists;
    EXPECT_FALSE(ReadKeywordsFile(path, lists, ui));
    EXPECT_EQ(ui.Said(path), keywordsSaid);
  }
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

TEST(WordFiles, AreAnnouncedOnceRead) {
  const struct {
    const char* bytes;
    const char* stopWords;
    const char* keywords;
  } rows[] = {{"/* a */\r\n", "Zero stop words", "Zero keywords"},
              {"walk\r\n", "One stop word", "One keyword word"},
              {"walk\r\nrun\r\n", "Two stop words", "Two keywords"}};
  for (const auto& [bytes, stopWords, keywords] : rows) {
    const TestFolder folder;
    const std::string path = folder.Write("w.txt", bytes);
    ScriptedInterface ui;
    ConcordanceSettings settings;
    StopWordList list;
    EXPECT_TRUE(AttemptToReadStopWords(path, settings, list, ui));
    EXPECT_EQ(settings.stopWordsFile, path);
    EXPECT_EQ(ui.Said(path), "Stop words loaded: " + std::string(stopWords) + " loaded from @\n");
    EXPECT_EQ(ui.labels[Label::numberOfWords].back(), stopWords);
    EXPECT_EQ(ui.output, "");
    KeywordLists lists;
    ui.questions.clear();
    EXPECT_TRUE(AttemptToReadSearchWords(path, lists, ui));
    EXPECT_EQ(ui.Said(), "Keywords to search for: Display search words?\n");
    EXPECT_EQ(ui.labels[Label::numberOfWords].back(), keywords);
    EXPECT_EQ(ui.output, keywords + (" loaded from " + path + "\r\n\r\n") +
                             (lists.fileKeywords.size() == 2 ? " run walk"
                              : lists.fileKeywords.empty()   ? ""
                                                             : " walk"));
    ui.answers = {Answer::no, Answer::no};
    EXPECT_TRUE(AttemptToReadSearchWords(path, lists, ui));
    EXPECT_TRUE(ui.output.ends_with("\r\n\r\n"));
  }
}

TEST(WordFiles, ShowTheBeginningOfALongList) {
  for (const int count : {1, 2, 30, 31}) {
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
