#include "engine/admission.h"

#include <gtest/gtest.h>

#include <functional>

#include "support/scanned_text.h"

namespace quorvel {
namespace {

TEST(Admission, ListsWhatSettingsAndListsAllow) {
  const WordTable table = MadeTable(
      {{u"4th", {1}}, {u"co-op", {5}}, {u"The", {11, 15}}, {u"the", {19, 23, 27}}, {u"two", {31}}});
  ConcordanceSettings settings;
  WordLists lists;
  lists.keywords = {{u"4th", u"the"}, ExtraKeywordList({ExtraKeywordOf(u"c*")})};
  // Each change comes on top of those before it.
  const std::pair<std::function<void()>, const char*> rows[] = {
      {[] {}, "co-op The the two "},
      {[&] { settings.allowWordsWithNumerals = true; }, "4th co-op The the two "},
      {[&] { settings.ignoreInfrequentWords = true; }, "The the "},
      {[&] { settings.thresholdFrequency = 3; }, "the "},
      {[&] { settings.ignoreInfrequentWords = false; }, "4th co-op The the two "},
      {[&] { settings.allowWordsWithHyphens = false; }, "4th The the two "},
      {[&] {
         lists.stopWords.words = {u"4th", u"the"};
       },
       "4th The the two "},  // no file, no words
      {[&] { settings.stopWordsFile = "a file"; }, "The two "},
      {[&] { ConcealNumWords(lists.stopWords, true); }, "The "},
      {[&] { settings.stopWordsFile = ""; }, "4th The the two "},
      {[&] { lists.extraStopWords = {u"the"}; }, ""},  // in any case, and the others with them
      {[&] { settings.mode = Mode::search; }, "4th co-op The the "}};
  for (const auto& [change, listed] : rows) {
    change();
    const IncludeFlags include = ApplyAdmissionFilters(table, settings, lists);
    ASSERT_EQ(include.size(), table.entries.size());
    std::string found;
    for (std::size_t i = 0; i < include.size(); ++i) {
      if (include[i]) found += EncodeUtf8(table.entries[i].word) + " ";
    }
    EXPECT_EQ(found, listed);
  }
}

}  // namespace
}  // namespace quorvel
