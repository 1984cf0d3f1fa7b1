#include "lists/stop_words.h"

#include <gtest/gtest.h>

#include "engine/admission.h"
#include "settings/settings.h"
#include "support/scripted_interface.h"

namespace quorvel {
namespace {

TEST(StopWords, TidiesExtraStopWords) {
  const char* rows[][2] = {{"the, a,an", "a an the"},
                           {"  The   ÉTÉ ", "the été"},
                           {" , ", ""},
                           {"one", "one"},
                           {"b a b", "a b b"}};
  for (const auto& row : rows) EXPECT_EQ(TidyExtraStopWords(row[0]), row[1]);
}

TEST(StopWords, ChecksTheirCharacters) {
  struct Row {
    const char* words;
    bool hyphens;
    bool numerals;
    const char* message;
  };
  const char* optional =
      " occurs in some stop word\r\nbut is not currently set as a character "
      "allowed in a word.";
  const char* never = " occurs in some stop word\r\nbut is not a character allowed in a word.";
  const Row rows[] = {{"été straße Œuvre", false, false, ""},
                      {"co-op 42nd", true, true, ""},
                      {"co-op", false, false, "-"},
                      {"42nd", true, false, "4"},
                      {"100%", true, true, "%"},
                      {"a×b", true, true, "×"},
                      {"a,b", true, true, ","}};
  for (const Row& row : rows) {
    SCOPED_TRACE(row.words);
    ConcordanceSettings settings;
    settings.extraStopWords = row.words;
    settings.allowWordsWithHyphens = row.hyphens;
    settings.allowWordsWithNumerals = row.numerals;
    ScriptedInterface ui;
    const std::string fault = row.message;
    EXPECT_EQ(CheckAllowedExtraChars(settings, ui), fault.empty());
    ASSERT_EQ(ui.questions.size(), fault.empty() ? 0U : 1U);
    if (fault.empty()) continue;
    const bool canBeAllowed = fault == "-" || fault == "4";
    std::string text = "The character " + fault + (canBeAllowed ? optional : never);
    if (fault == ",") {
      text += "\r\n\r\nWords-to-ignore must be separated by a space, not by a comma.";
    }
    EXPECT_EQ(ui.questions[0].text, text);
    EXPECT_EQ(ui.questions[0].title, "Character not allowed");
  }
}

TEST(StopWords, ConcealNumberWordsOnce) {
  StopWordList list;
  list.words = {u"one", u"the"};
  ConcealNumWords(list, true);
  ConcealNumWords(list, true);
  EXPECT_TRUE(BinarySearch(list.words, u"Twenty-one"));
  EXPECT_TRUE(BinarySearch(list.words, u"the"));
  ConcealNumWords(list, false);
  EXPECT_EQ(list.words, (SortedWords{u"one", u"the"}));
}

TEST(Admission, FollowsTheSettings) {
  struct Row {
    const char* name;
    void (*change)(ConcordanceSettings&);
    std::vector<std::u16string> listed;
  };
  const Row rows[] = {
      {"defaults", [](ConcordanceSettings&) {}, {u"The", u"co-op", u"the", u"two"}},
      {"no hyphens",
       [](ConcordanceSettings& s) { s.allowWordsWithHyphens = false; },
       {u"The", u"the", u"two"}},
      {"numerals",
       [](ConcordanceSettings& s) { s.allowWordsWithNumerals = true; },
       {u"12th", u"3-d", u"The", u"co-op", u"the", u"two"}},
      {"infrequent", [](ConcordanceSettings& s) { s.ignoreInfrequentWords = true; }, {u"the"}},
      // With any stop words at all, the list counts too, and the number words in it.
      {"extra stop word in any case", [](ConcordanceSettings& s) { s.extraStopWords = "the"; }, {}},
      {"list word as spelled",
       [](ConcordanceSettings& s) { s.stopWordsFile = "a file"; },
       {u"The", u"the"}}};
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    ConcordanceSettings settings;
    row.change(settings);
    WordLists lists;
    lists.stopWords.words = {u"co-op"};
    ConcealNumWords(lists.stopWords, true);
    lists.extraStopWords = ExtraStopWordsOf(settings.extraStopWords);
    WordTable table;
    for (const char16_t* word : {u"12th", u"3-d", u"The", u"co-op", u"the", u"the", u"two"}) {
      AddWordToList(table, word, 1);
    }
    ApplyAdmissionFilters(table, settings, lists);
    std::vector<std::u16string> listed;
    for (const WordEntry& entry : table.entries) {
      if (entry.include) listed.push_back(entry.word);
    }
    EXPECT_EQ(listed, row.listed);
  }
}

TEST(Settings, GoBackToTheirDefaults) {
  ConcordanceSettings changed;
  changed.contextSize = 9;
  changed.inputFile = changed.stopWordsFile = changed.extraStopWords = "x";
  changed.thresholdFrequency = 20;
  changed.allowWordsWithHyphens = false;
  changed.createIndexFile = true;
  ConcordanceSettings window = changed;
  InitializeVariables(window, false);
  EXPECT_EQ(window.contextSize, 5);
  EXPECT_EQ(window.inputFile + window.stopWordsFile, "");
  EXPECT_EQ(window.extraStopWords, "x");
  EXPECT_EQ(window.thresholdFrequency, 20);
  EXPECT_TRUE(window.createIndexFile && !window.allowWordsWithHyphens);
  ConcordanceSettings all = changed;
  InitializeVariables(all, true);
  EXPECT_EQ(all.extraStopWords, "");
  EXPECT_EQ(all.thresholdFrequency, 2);
  EXPECT_TRUE(all.createIndexFile && all.allowWordsWithHyphens);
}

}  // namespace
}  // namespace quorvel
