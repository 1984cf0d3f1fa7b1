#include "output/listing_order.h"

#include <gtest/gtest.h>

#include "support/scanned_text.h"
#include "support/scripted_conversation.h"

namespace quorvel {
namespace {

TEST(ListingOrder, IsThatAskedForWithTheStepOfEachWord) {
  SilentProgress nobody;
  ConcordanceSettings settings;
  settings.extraStopWords = "bird";
  const Listing listing = ScanText(u"dog cat dog ant bird cat dog", settings, nobody);
  const auto listed = [&](WordOrder order) {
    std::string text;
    for (const ListedWord& word : WordsInOrder(*listing.words, order)) {
      text += EncodeAnsi(word.entry->word) + " " + std::to_string(word.step) + " ";
    }
    return text;
  };
  EXPECT_EQ(listed(WordOrder::alphabetical), "ant 1 cat 3 dog 4 ");
  EXPECT_EQ(listed(WordOrder::byFrequency), "dog 1 cat 2 ant 3 ");
}

TEST(ListingOrder, ShowsABarForMoreThanAHundredWords) {
  std::vector<std::string> wholeBar;
  for (int position = 0; position <= PROGRESS_BAR_WIDTH; ++position) {
    wholeBar.push_back(ProgressCaption(position));
  }
  wholeBar.emplace_back();
  for (const int count : {100, 101}) {
    std::u16string text;
    for (int i = 0; i < count; ++i) {
      text += {u'w', u'o', static_cast<char16_t>(u'a' + i / 26),
               static_cast<char16_t>(u'a' + i % 26), u' '};
    }
    ScriptedConversation ui;
    const Listing listing = ScanText(text, {}, ui);
    ui.bars.clear();
    {
      ListingProgress shown(*listing.words, ui);
      for (const ListedWord& word : WordsInOrder(*listing.words, WordOrder::alphabetical)) {
        shown.Show(word);
        EXPECT_TRUE(shown.MayGoOn());
      }
      ui.stopAtYield = ui.yields + 1;
      EXPECT_FALSE(shown.MayGoOn());
    }
    EXPECT_EQ(ui.bars, count == 100 ? std::vector<std::string>() : wholeBar);
  }
}

}  // namespace
}  // namespace quorvel
