#include "lists/stop_words.h"

#include <gtest/gtest.h>

#include "support/latin.h"

namespace quorvel {

TEST(StopWords, TidiesExtraStopWords) {
  const char* rows[][2] = {
      {"the, a,an", "a an the"}, {"  The   ÉTÉ ", "the été"}, {" , ", ""}, {"b a b", "a b b"}};
  for (const auto& row : rows) EXPECT_EQ(TidyExtraStopWords(row[0], latin), row[1]);
}

TEST(StopWords, MayHoldWhatAWordMayHold) {
  using enum FaultKind;
  // Whether words may have hyphens and numerals, the fault, and its character.
  const std::tuple<const char*, bool, bool, FaultKind, const char*> rows[] = {
      {"été straße Œuvre", false, false, stopped, ""},
      {"co-op 42nd", true, true, stopped, ""},
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

TEST(StopWords, AreErasedAndTheNumberWordsShownAgain) {
  StopWordList list = {{u"the"}, {u"two"}, true};
  EraseStopWords(list);
  EXPECT_TRUE(list.words.empty() && !list.loaded && !list.numberWords.empty());
  ConcealNumWords(list, false);
  EXPECT_TRUE(list.numberWords.empty());
}

}  // namespace quorvel
