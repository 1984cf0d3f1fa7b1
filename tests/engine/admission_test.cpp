#include "engine/admission.h"

#include <gtest/gtest.h>

#include "support/latin.h"
#include "support/scanned_text.h"
#include "util/utf8.h"

namespace quorvel {

TEST(Admission, ListsWhatSettingsAndListsAllow) {
  const WordTable table = MadeTable(
      {{u"4th", {1}}, {u"co-op", {5}}, {u"The", {11, 15}}, {u"the", {19, 23, 27}}, {u"two", {31}}});
  ConcordanceSettings settings;
  WordLists lists;
  lists.keywords = {{u"4th", u"the"}, ExtraKeywordList({ExtraKeywordOf(u"c*")}, latin)};
  // Each change is made in addition to those before it.
  const std::pair<std::function<void()>, const char*> rows[] = {
      {[&] { settings.allowWordsWithNumerals = true; }, "4th co-op The the two "},
      {[&] { settings.ignoreInfrequentWords = true; }, "The the "},
      {[&] { settings.ignoreInfrequentWords = settings.allowWordsWithHyphens = false; },
       "4th The the two "},
      {[&] {
         lists.stopWords.words.assign({u"4th", u"the"});
       },
       "4th The the two "},  // which are in no file
      {[&] { settings.stopWordsFile = "a file"; }, "The two "},
      {[&] { ConcealNumWords(lists.stopWords, true); }, "The "},
      {[&] { lists.extraStopWords = {u"the"}; }, ""},  // in any case
      {[&] { settings.mode = Mode::search; }, "4th co-op The the "}};
  for (const auto& [change, listed] : rows) {
    change();
    const IncludeFlags include = ApplyAdmissionFilters(table, settings, lists, latin);
    std::string found;
    for (std::size_t i = 0; i < include.size(); ++i) {
      if (include[i]) found += EncodeUtf8(table.entries[i].word) + " ";
    }
    EXPECT_EQ(found, listed);
  }
}

}  // namespace quorvel
