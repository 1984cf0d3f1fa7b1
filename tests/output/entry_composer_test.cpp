#include "output/entry_composer.h"

#include <gtest/gtest.h>

#include "support/latin.h"
#include "support/scanned_text.h"
#include "util/ansi.h"

namespace quorvel {
namespace {

TEST(EntryComposer, ListsTheContextsThatAreWantedInASearch) {
  SilentProgress nobody;
  ConcordanceSettings settings;
  settings.mode = Mode::search;
  settings.contextSize = 1;
  KeywordLists lists;
  lists.fileKeywords = {u"lay"};
  lists.extraKeywords = ExtraKeywordList(
      {ExtraKeywordOf(u"ship+sank."), ExtraKeywordOf(u"s?ip"), ExtraKeywordOf(u"ship+?x#?")},
      LATIN);
  const std::u16string text = u"of us ship so lay to us ship so lay at us ship sank. to be or it";
  const Words words = ScanWords(DocumentOf(text), nullptr, nobody);
  EXPECT_EQ(DecodeAnsi(Composed(ListingOf(words, settings, lists), nobody)),
            u"[lay 2]\r\n... so «lay» to\r\n... so «lay» at\r\n\r\n"
            u"[ship 3]\r\n... us «ship» sank.\r\n... us «ship» so (x2)\r\n"
            u"... us «ship» sank.\r\n... us «ship» so (x2)\r\n");
}

}  // namespace
}  // namespace quorvel
