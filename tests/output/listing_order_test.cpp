#include "output/listing_order.h"

#include <gtest/gtest.h>

#include "support/scanned_text.h"
#include "support/scripted_conversation.h"

namespace quorvel {
namespace {

// The bar of an alphabetical listing also counts the words of the table that are not listed.
TEST(ListingOrder, CountsTheStepsOfTheBar) {
  SilentProgress nobody;
  ConcordanceSettings settings;
  settings.extraStopWords = "bay";
  const Listing listing = ScanText(u"lamp bay apple lamp.", settings, nobody);
  const std::pair<WordOrder, const char16_t*> rows[] = {
      {WordOrder::alphabetical, u"apple 1 lamp 3 "}, {WordOrder::byFrequency, u"lamp 1 apple 2 "}};
  for (const auto& [order, expected] : rows) {
    std::u16string listed;
    for (const auto& [entry, step] : WordsInOrder(*listing.words, order)) {
      listed.append(entry->word).append({u' ', static_cast<char16_t>(u'0' + step), u' '});
    }
    EXPECT_EQ(listed, expected);
  }
}

TEST(ListingOrder, ShowsABarForMoreThanAHundredWords) {
  SilentProgress nobody;
  for (const auto& [words, bars] : {std::pair(100, 0U), {101, 2U}}) {
    std::u16string text;
    for (int i = 0; i < words; ++i) {
      text +=
          {static_cast<char16_t>(u'a' + i / 26), static_cast<char16_t>(u'a' + i % 26), u'q', u' '};
    }
    const Listing listing = ScanText(text, {}, nobody);
    ScriptedConversation ui;
    ListingProgress(*listing.words, ui).Show({nullptr, 1});
    EXPECT_EQ(ui.bars.size(), bars) << words;
  }
}

}  // namespace
}  // namespace quorvel
