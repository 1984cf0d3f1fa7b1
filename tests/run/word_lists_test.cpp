#include "run/word_lists.h"

#include <gtest/gtest.h>

#include "support/latin.h"
#include "support/made_texts.h"
#include "support/platform.h"
#include "support/refused_calls.h"
#include "support/scripted_conversation.h"
#include "support/test_folder.h"
#include "util/utf8.h"

namespace quorvel {

TEST(WordLists, SayWhatWasLoaded) {
  const TestFolder folder;
  const std::string path = folder.Write("w.txt", "Walks the\r\n42\r\n");
  ConcordanceSettings settings;
  StopWordList list;
  ScriptedConversation ui;
  EXPECT_TRUE(AttemptToReadStopWords(path, settings, list, ui));
  EXPECT_EQ(list.words, (SortedWords{u"42", u"Walks", u"the"}));
  EXPECT_EQ(settings.stopWordsFile, path);
  EXPECT_EQ(ui.Said(path), "Stop words loaded: Three stop words loaded from @\n");
  EXPECT_EQ(ui.log,
            "= Reading stop words ...\n= \nlabel Three stop words\nasks Stop words loaded\n");
  KeywordLists lists;
  EXPECT_TRUE(AttemptToReadSearchWords(path, latin, lists, ui));
  EXPECT_EQ(ui.output, "Two keywords loaded from " + path + "\r\n\r\n the walk");
  EXPECT_NE(ui.log.find("label Two keywords\n= Two keywords loaded"), std::string::npos);
  ui.answers.assign(3, Answer::no);
  EXPECT_TRUE(AttemptToReadSearchWords(path, latin, lists, ui));
  EXPECT_TRUE(ui.output.ends_with("\r\n\r\n"));
}

TEST(WordLists, AreKeptWhereAFileIsNoList) {
  const TestFolder folder;
  const std::pair<std::string, std::string> rows[] = {
      {"", ""},
      {folder.Path(""), " words file not found:\r\n@\n"},
      // Only ordinary files are opened, because reading a pipe may never end.
      {NULL_DEVICE, "Fatal error: File @\r\n cannot be opened (permission denied).\n"},
      {folder.Write("w.txt", "\xFF\xFEtext"),
       "Fatal error: File @\r\nis a Unicode file but not UTF-8 encoded.\n"}};
  for (const auto& [path, said] : rows) {
    StopWordList list = {{u"old"}, {}, true};
    KeywordLists lists = {{u"old"}, {}};
    ScriptedConversation ui;
    ConcordanceSettings settings;
    EXPECT_FALSE(AttemptToReadStopWords(path, settings, list, ui) || list.loaded) << path;
    const bool isMissing = said.starts_with(" words");
    EXPECT_EQ(ui.Said(path), isMissing ? "Stop words: Stop" + said : said) << path;
    ui.questions.clear();
    EXPECT_FALSE(AttemptToReadSearchWords(path, latin, lists, ui)) << path;
    EXPECT_EQ(ui.Said(path), isMissing ? "Search words: Key" + said.substr(1) : said) << path;
    EXPECT_EQ(list.words, SortedWords{u"old"});
    EXPECT_EQ(lists.fileKeywords, SortedWords{u"old"});
    EXPECT_EQ(ui.log.find("= "), std::string::npos);
  }
}

#ifdef __linux__
TEST(WordLists, SayWhichErrorKeepsThemFromBeingRead) {
  const TestFolder folder;
  const std::string path = folder.Write("w.txt", "the\r\n");
  InChild([&path] {
    RefuseCall(SYS_read, EIO);
    StopWordList list;
    KeywordLists lists;
    ScriptedConversation ui;
    EXPECT_FALSE(ReadStopWordsFile(path, latin, list, ui) ||
                 ReadKeywordsFile(path, latin, lists, ui));
    EXPECT_EQ(ui.Said(path),
              "Stop words: Error #5 when reading stop words from tile @\n"
              "Search words: Error #5 when reading search words from tile @\n");
  });
}
#endif

TEST(WordLists, CanBeStoppedWhereTheyAreLong) {
  for (const char* offers : {"", "stop on\nstop off\n"}) {
    const TestFolder folder;
    const std::string path =
        folder.Write("a.txt", Repeated("ab\r\n", 5120) + (*offers == '\0' ? "" : "a"));
    StopWordList list;
    KeywordLists lists;
    ScriptedConversation ui;
    ui.stopAtYield = 1;
    EXPECT_FALSE(ReadStopWordsFile(path, latin, list, ui) || list.loaded);
    ui.yields = 0;
    EXPECT_FALSE(ReadKeywordsFile(path, latin, lists, ui));
    EXPECT_EQ(ui.log, std::string("= Reading stop words ...\n") + offers +
                          "= Reading stop words was stopped.\n= Reading keywords ...\n" + offers +
                          "= Reading search words was stopped.\n");
    EXPECT_TRUE(ReadStopWordsFile(path, latin, list, ui) && list.loaded);
  }
}

TEST(WordLists, ShowTheBeginningOfALongList) {
  for (const int count : {1, 2, 30, 31}) {
    StopWordList list;
    std::string expected = "Stop words: There are " + std::to_string(count) + " stop words.\r\n";
    for (int i = 0; i < count; ++i) {
      list.words.push_back({static_cast<char16_t>(u'A' + i)});
      if (i < 30) expected += "\r\n" + EncodeUtf8(list.words.back());
    }
    ScriptedConversation ui;
    ListStopWords(list, ui);
    EXPECT_EQ(ui.Said(),
              count < 2 ? "" : expected + (count > 30 ? "\r\n\r\nand more\n" : "\r\n\n"));
  }
}

}  // namespace quorvel
