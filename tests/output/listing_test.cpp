#include "output/listing.h"

#include <gtest/gtest.h>

#include "naive/naive_forms.h"
#include "support/made_texts.h"
#include "support/scanned_text.h"
#include "support/scripted_conversation.h"
#include "util/ansi.h"

namespace quorvel {
namespace {

using Text = std::u16string;

Text FastListing(const Text& text, const ConcordanceSettings& settings) {
  SilentProgress nobody;
  return DecodeAnsi(Composed(ScanText(text, settings, nobody), nobody));
}

TEST(Listing, SameAsTheNaiveForm) {
  const std::vector<std::vector<Text>> alphabets = {
      {u"the ", u"old ", u"harbour ", u"house ", u"/ ", u"/ / ", u". "},
      {u"the ", u"sea ", u"(x2) ", u"(x ", u" (x2)", u"/ (x3) ", u"(x"},
      {u"aba", u"Aba", u"ba", u"ab", u"s", u" ", u"«", u"»", u"»s", u"»s»s", u"cats "},
      {u"sos", u"Sos", u"s", u"ss", u"ses ", u" "},
      {u"to a dog--(x2) is ", u"to a dog ", u"abcdefghijklmnopqrstuvwxyzabcdefghijklmnopqrst ",
       u"is ", u"(x3) "},
      {u"x12 ", u"x2x ", u"(x2) ", u"x12-x12 ", u"to ", u"/ ", u"--", u"it "},
      {u"one", u"two ", u" ", u"  ", u"--", u" -- ", u"/", u" / ", u"  /  ", u"-"},
      {u"abcdefghijklmnopqrs ", u"abcdefghijklmnopqr/ ", u"/ ", u"/ / ", u"ship ", u"-",
       u"\u00e9t\u00e9 ", u"\u00c9t\u00e9s "}};
  std::mt19937 random(20261121);
  for (std::size_t round = 0; round < 120; ++round) {
    const std::size_t mostParts = round % 4 == 0 ? 12 : round % 9 == 1 ? 200 : 40;
    ConcordanceSettings settings;
    settings.allowWordsWithNumerals = random() % 2 == 0;
    // Some words of a long text are listed in another way than all words of a short one.
    const Text points(round % 31 == 2 ? 40000 : 0, u'.');
    const Text text = RandomText(alphabets[round % alphabets.size()], mostParts, random) + points;
    for (int contextSize = 0; contextSize < 10; ++contextSize) {
      const auto choice = random() % 8;
      settings.contextSize = contextSize;
      settings.wordOrder = choice % 2 == 0 ? WordOrder::alphabetical : WordOrder::byFrequency;
      settings.showFrequencies = choice / 2 % 2 == 0;
      settings.showLineBreaks = choice / 4 % 2 == 0;
      ASSERT_EQ(FastListing(text, settings), naive::ListWords(text, settings))
          << "text: " << testing::PrintToString(text) << "\ncontext " << contextSize << ", choice "
          << choice << ", numerals " << settings.allowWordsWithNumerals;
    }
  }
}

// A text long enough to be composed by several threads.
Text TextOfManyPieces() {
  std::mt19937 random(20261121);
  Text text;
  for (int i = 0; i < 10000; ++i) {
    text += Text{u'w', static_cast<char16_t>(u'a' + random() % 20),
                 u'o', static_cast<char16_t>(u'a' + random() % 20),
                 u'.', u' '};
  }
  return text;
}

TEST(Listing, IsWholeUpToAStopOrWhereNoMoreIsWanted) {
  const std::pair<Text, int> rows[] = {
      {TextOfManyPieces(), 5}, {u"harbour light by the sea", 5}, {TextOfManyPieces(), 0}};
  for (const auto& [text, contextSize] : rows) {
    ConcordanceSettings settings;
    settings.contextSize = contextSize;
    const Text whole = FastListing(text, settings);
    EXPECT_TRUE(whole == naive::ListWords(text, settings));
    for (const bool stops : {false, true}) {
      SilentProgress ui;
      const Listing listing = ScanText(text, settings, ui);
      std::string taken;
      const auto take = [&](std::string_view piece) {
        EXPECT_TRUE(taken.empty());
        taken += piece;
        if (stops) ui.RequestStop();
        return stops;
      };
      Compose(listing, take, ui);
      EXPECT_TRUE(!taken.empty() && taken.size() < whole.size());
      EXPECT_TRUE(whole.starts_with(DecodeAnsi(taken)));
    }
  }
}

TEST(Listing, EndsBeforeAWordThatIsTooFrequent) {
  SilentProgress nobody;
  const auto listingOf = [&nobody](int times) {
    return ScanText(u"zoo ant " + DecodeAnsi(Repeated("Zebu ", times)), {}, nobody);
  };
  const Listing most = listingOf(32767);
  EXPECT_TRUE(TooFrequentWords(most).empty());
  const std::string listed = Composed(most, nobody);
  EXPECT_NE(listed.find("[zoo 1]"), std::string::npos);
  const Listing tooMany = listingOf(32768);
  ASSERT_EQ(TooFrequentWords(tooMany).size(), 1U);
  EXPECT_EQ(TooFrequentWords(tooMany)[0]->word, u"Zebu");
  EXPECT_EQ(Composed(tooMany, nobody), listed.substr(0, listed.find("\r\n[Zebu")));
}

TEST(Listing, ShowsHowFarItIs) {
  SilentProgress nobody;
  ConcordanceSettings settings;
  for (const int contextSize : {0, 5}) {
    settings.contextSize = contextSize;
    const Listing listing = ScanText(TextOfManyPieces(), settings, nobody);
    ScriptedConversation ui;
    (void)Composed(listing, ui);
    EXPECT_GT(ui.bars.size(), 3U) << contextSize;
  }
}

}  // namespace
}  // namespace quorvel
