#include "lists/stop_words.h"

#include <gtest/gtest.h>

#include "support/scanned_text.h"
#include "support/scripted_interface.h"

namespace quorvel {
namespace {

TEST(StopWords, TidiesExtraStopWords) {
  const char* rows[][2] = {
      {"the, a,an", "a an the"}, {"  The   ÉTÉ ", "the été"}, {" , ", ""}, {"b a b", "a b b"}};
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

// With any stop words at all, the list counts too, and the number words in it.
TEST(Admission, LeavesOutStopWords) {
  const std::tuple<const char*, const char*, std::u16string> rows[] = {
      {"", "", u"co-op The the two "}, {"the", "", u""}, {"", "a file", u"The the "}};
  for (const auto& [extra, file, expected] : rows) {
    ScriptedInterface ui;
    ConcordanceSettings settings;
    settings.extraStopWords = extra;
    settings.stopWordsFile = file;
    RunState state = ScanText(u"The co-op, the two.", settings, ui);
    state.lists.stopWords.words = {u"co-op"};
    ConcealNumWords(state.lists.stopWords, true);
    ApplyAdmissionFilters(state.table, settings, state.lists);
    std::u16string listed;
    for (const WordEntry& entry : state.table.entries) {
      listed += entry.include ? entry.word + u" " : u"";
    }
    EXPECT_EQ(listed, expected) << extra << file;
  }
}

}  // namespace
}  // namespace quorvel
