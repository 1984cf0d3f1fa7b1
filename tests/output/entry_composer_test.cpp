#include "output/entry_composer.h"

#include <gtest/gtest.h>

#include "naive/naive_forms.h"
#include "support/made_texts.h"
#include "support/scanned_text.h"
#include "util/ansi.h"

namespace quorvel {
namespace {

TEST(EntryComposer, GivesEachWordItsContexts) {
  // The long word ends the window before the context is complete.
  const std::u16string cut = u"to a dog abcdefghijklmnopqrstuvwxyzabcdefghijklmnopqrstuvwxyz ";
  const std::u16string marked = u"to a dog--(x2) is ";
  const std::u16string start = u"of us so it is to be or it is so to us of it ";
  const std::string many = "to " + Repeated("x12 to ", 13) + "it";
  const struct {
    const char* name;
    int contextSize;
    std::u16string text, expected;
    const char* stopWords = "";
  } rows[] = {
      {"a text too short for its context", 5, u"It was big.",
       u"[big 1]\r\n... \r\n\r\n[was 1]\r\n... «was» \r\n"},
      {"the word everywhere, its capital and its plural", 3, u"to cats, Cat scatter Cats CAT to.",
       u"[CAT 1]\r\n... Cat scatter Cats «CAT» \r\n\r\n"
       u"[Cat 2]\r\n...  cats, «Cat» scatter «Cats» CAT \r\n... «Cat» scatter «Cats» CAT \r\n\r\n"
       u"[cat 1]\r\n...  «cats», «Cat» s«cat»ter «Cats» CAT \r\n",
       "scatter"},
      {"marks of the text", 3, u"to »s cat »ss «cat» to.",
       u"[cat 2]\r\n...  s» «cat» s»s ««cat»» \r\n... «cat» s»s ««cat»»\r\n"},
      {"a context equals one less the text's marker", 2, start + marked + cut,
       u"[dog 2]\r\n... to a «dog»  (x2) (x2)\r\n"},
      {"... and no more once that is marked", 2, start + marked + cut + marked + cut + cut,
       u"[dog 5]\r\n... to a «dog»  (x2) (x3)\r\n... to a «dog»  (x2)\r\n"},
      {"the word within the marker", 1, DecodeAnsi(many),
       u"[x12 13]\r\n... «x12» to «x12»\r\n... to «x12» to («x12»)\r\n"},
  };
  for (const auto& row : rows) {
    ConcordanceSettings settings;
    settings.contextSize = row.contextSize;
    settings.allowWordsWithNumerals = true;
    settings.extraStopWords = row.stopWords;
    SilentProgress nobody;
    const std::string entries = Composed(ScanText(row.text, settings, nobody), nobody);
    EXPECT_EQ(DecodeAnsi(entries), row.expected) << row.name;
    EXPECT_EQ(naive::ListWords(row.text, settings), row.expected) << row.name;
  }
}

TEST(EntryComposer, ListsTheContextsThatAreWantedInASearch) {
  SilentProgress nobody;
  ConcordanceSettings settings;
  settings.mode = Mode::search;
  settings.contextSize = 1;
  KeywordLists lists;
  lists.fileKeywords = {u"lay"};
  lists.extraKeywords = ExtraKeywordList(
      {ExtraKeywordOf(u"ship+sank."), ExtraKeywordOf(u"s?ip"), ExtraKeywordOf(u"ship+?x#?")});
  const std::u16string text = u"of us ship so lay to us ship so lay at us ship sank. to be or it";
  const Words words = ScanWords(DocumentOf(text), nullptr, nobody);
  EXPECT_EQ(DecodeAnsi(Composed(ListingOf(words, settings, lists), nobody)),
            u"[lay 2]\r\n... so «lay» to\r\n... so «lay» at\r\n\r\n"
            u"[ship 3]\r\n... us «ship» sank.\r\n... us «ship» so (x2)\r\n"
            u"... us «ship» sank.\r\n... us «ship» so (x2)\r\n");
}

}  // namespace
}  // namespace quorvel
