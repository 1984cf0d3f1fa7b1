#include "lists/stop_words.h"

#include <gtest/gtest.h>

#include "engine/admission.h"
#include "util/ansi.h"

namespace quorvel {
namespace {

TEST(StopWords, TidiesExtraStopWords) {
  const char* rows[][2] = {
      {"the, a,an", "a an the"}, {"  The   ÉTÉ ", "the été"}, {" , ", ""}, {"b a b", "a b b"}};
  for (const auto& row : rows) EXPECT_EQ(TidyExtraStopWords(row[0]), row[1]);
}

TEST(StopWords, MayHoldWhatAWordMayHold) {
  using enum FaultKind;
  const struct {
    const char* words;
    bool hyphens, numerals;
    FaultKind kind = stopped;
    const char* character = "";  // empty where all may stand in a word
  } rows[] = {{"été straße Œuvre", false, false},
              {"co-op 42nd", true, true},
              {"co-op", false, false, notAllowedForNow, "-"},
              {"42nd", true, false, notAllowedForNow, "4"},
              {"a×b%", true, true, notAllowedInStopWord, "×"},
              {"a,b", true, true, notAllowedInStopWord, ","}};
  for (const auto& [words, hyphens, numerals, kind, character] : rows) {
    ConcordanceSettings settings;
    settings.extraStopWords = words;
    settings.allowWordsWithHyphens = hyphens;
    settings.allowWordsWithNumerals = numerals;
    const Fault fault = FaultInExtraStopWords(settings).value_or(Fault());
    EXPECT_EQ(fault.kind, kind) << words;
    EXPECT_EQ(fault.reason, character) << words;
  }
}

// With any stop words at all, the list counts too, and the number words in it.
TEST(StopWords, LeaveOutWords) {
  const std::tuple<const char*, const char*, std::string> rows[] = {
      {"", "", "co-op The the two "}, {"the", "", ""}, {"", "a file", "The the "}};
  for (const auto& [extra, file, expected] : rows) {
    ConcordanceSettings settings;
    settings.stopWordsFile = file;
    WordLists lists;
    lists.extraStopWords = ExtraStopWordsOf(extra);
    lists.stopWords.words = {u"co-op"};
    ConcealNumWords(lists.stopWords, true);
    std::string listed;
    for (const char16_t* word : {u"co-op", u"The", u"the", u"two"}) {
      if (!IsStopWord(word, settings, lists)) listed += EncodeUtf8(word) + " ";
    }
    EXPECT_EQ(listed, expected) << extra << file;
  }
}

}  // namespace
}  // namespace quorvel
