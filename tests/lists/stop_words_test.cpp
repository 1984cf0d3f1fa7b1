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
  const std::string is = " occurs in some stop word\r\nbut is not ";
  const std::string optional = is + "currently set as a character allowed in a word.\n";
  const std::string never = is + "a character allowed in a word.";
  const std::string comma = "\r\n\r\nWords-to-ignore must be separated by a space, not by a comma.";
  const struct {
    const char* words;
    bool hyphens, numerals;
    std::string fault;
  } rows[] = {
      {"été straße Œuvre", false, false, ""},   {"co-op 42nd", true, true, ""},
      {"co-op", false, false, "-" + optional},  {"42nd", true, false, "4" + optional},
      {"a×b%", true, true, "×" + never + "\n"}, {"a,b", true, true, "," + never + comma + "\n"}};
  for (const auto& [words, hyphens, numerals, fault] : rows) {
    ConcordanceSettings settings;
    settings.extraStopWords = words;
    settings.allowWordsWithHyphens = hyphens;
    settings.allowWordsWithNumerals = numerals;
    ScriptedInterface ui;
    EXPECT_EQ(CheckAllowedExtraChars(settings, ui), fault.empty()) << words;
    EXPECT_EQ(ui.Said(), fault.empty() ? "" : "Character not allowed: The character " + fault);
  }
}

TEST(Admission, FollowsTheSettings) {
  const struct {
    const char* name;
    void (*change)(ConcordanceSettings&);
    std::u16string listed;
  } rows[] = {{"defaults", [](auto&) {}, u"The co-op the two "},
              {"no hyphens", [](auto& s) { s.allowWordsWithHyphens = false; }, u"The the two "},
              {"numerals", [](auto& s) { s.allowWordsWithNumerals = true; },
               u"12th 3-d The co-op the two "},
              {"infrequent", [](auto& s) { s.ignoreInfrequentWords = true; }, u"the "},
              // With any stop words at all, the list counts too, and the number words in it.
              {"extra stop word in any case", [](auto& s) { s.extraStopWords = "the"; }, u""},
              {"list word as spelled", [](auto& s) { s.stopWordsFile = "a file"; }, u"The the "}};
  for (const auto& [name, change, expected] : rows) {
    ConcordanceSettings settings;
    change(settings);
    WordLists lists;
    lists.stopWords.words = {u"co-op"};
    ConcealNumWords(lists.stopWords, true);
    lists.extraStopWords = ExtraStopWordsOf(settings.extraStopWords);
    WordTable table;
    for (const char16_t* word : {u"12th", u"3-d", u"The", u"co-op", u"the", u"the", u"two"}) {
      AddWordToList(table, EntryOf(table, word), 1);
    }
    ApplyAdmissionFilters(table, settings, lists);
    std::u16string listed;
    for (const WordEntry& entry : table.entries) listed += entry.include ? entry.word + u" " : u"";
    EXPECT_EQ(listed, expected) << name;
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
