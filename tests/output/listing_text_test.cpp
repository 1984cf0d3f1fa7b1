#include <gtest/gtest.h>

#include "naive/naive_forms.h"
#include "output/listing.h"
#include "support/made_texts.h"
#include "support/scanned_text.h"
#include "util/ansi.h"

namespace quorvel {
namespace {

using Text = std::u16string;

Text FastListing(const Text& text, const ConcordanceSettings& settings) {
  SilentProgress nobody;
  return DecodeAnsi(Composed(ScanText(text, settings, nobody), nobody));
}

TEST(ListingText, Entries) {
  // The long word ends the window before the context is complete.
  const Text cut = u"to a dog abcdefghijklmnopqrstuvwxyzabcdefghijklmnopqrstuvwxyz ";
  const Text marked = u"to a dog--(x2) is ";
  const Text start = u"of us so it is to be or it is so to us of it ";
  const std::string many = "to " + Repeated("x12 to ", 13) + "it";
  const struct {
    const char* name;
    int contextSize;
    Text text, expected;
    const char* stopWords = "";
    bool showLineBreaks = false;
  } rows[] = {
      {"line breaks shown, not counted as words", 2, u"a b / c / dog / e f / g h i",
       u"[dog 1]\r\n... b / c / «dog» / e f\r\n", "", true},
      {"a text too short for its context", 5, u"It was big.",
       u"[big 1]\r\n... \r\n\r\n[was 1]\r\n... «was» \r\n"},
      {"a neighbour longer than the window", 1, u"of abcdefghijklmnopqrstuvwxyzabcdef sea by us at",
       u"[sea 1]\r\n...  «sea» by\r\n"},
      {"blanks of blanked hyphens count, those passed over on the left do not", 2,
       u"to us by--sea--by us to be or not", u"[sea 1]\r\n... by  «sea»  by\r\n", "not"},
      {"the word everywhere, its capital and its plural", 3, u"to cats, Cat scatter Cats CAT to.",
       u"[CAT 1]\r\n... Cat scatter Cats «CAT» \r\n\r\n"
       u"[Cat 2]\r\n...  cats, «Cat» scatter «Cats» CAT \r\n... «Cat» scatter «Cats» CAT \r\n\r\n"
       u"[cat 1]\r\n...  «cats», «Cat» s«cat»ter «Cats» CAT \r\n",
       "scatter"},
      {"marks of the text", 3, u"to »s cat »ss «cat» to.",
       u"[cat 2]\r\n...  s» «cat» s»s ««cat»» \r\n... «cat» s»s ««cat»»\r\n"},
      {"a marker of the text is none of its own", 1, u"a dog (x2) . a dog (x2) . a dog (x2) . ",
       u"[dog 3]\r\n... «dog» (x2) .\r\n... a «dog» (x2)\r\n... a «dog» (x2)\r\n"},
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
    settings.showLineBreaks = row.showLineBreaks;
    settings.allowWordsWithNumerals = true;
    settings.extraStopWords = row.stopWords;
    EXPECT_EQ(FastListing(row.text, settings), row.expected) << row.name;
    EXPECT_EQ(naive::ListWords(row.text, settings), row.expected) << row.name;
  }
}

TEST(ListingText, SameAsTheNaiveForm) {
  const std::vector<std::vector<Text>> alphabets = {
      {u"the ", u"old ", u"harbour ", u"house ", u"/ ", u"/ / ", u". "},
      {u"the ", u"sea ", u"(x2) ", u"(x ", u" (x2)", u"/ (x3) ", u"(x"},
      {u"aba", u"Aba", u"ba", u"ab", u"s", u" ", u"«", u"»", u"»s", u"cats "},
      {u"sos", u"Sos", u"s", u"ss", u"ses ", u" "},
      {u"to a dog--(x2) is ", u"to a dog ", u"abcdefghijklmnopqrstuvwxyzabcdefghijklmnopqrst ",
       u"is ", u"(x3) "},
      {u"x12 ", u"x2x ", u"(x2) ", u"x12-x12 ", u"to ", u"/ ", u"--", u"it "},
      {u"one", u"two ", u" ", u"  ", u"--", u" -- ", u"/", u" / ", u"-"},
      {u"abcdefghijklmnopqrs ", u"abcdefghijklmnopqr/ ", u"/ ", u"/ / ", u"ship ", u"-",
       u"\u00e9t\u00e9 "}};
  std::mt19937 random(20261121);
  for (std::size_t round = 0; round < 480; ++round) {
    const std::size_t mostParts = round % 4 == 0 ? 12 : round % 50 == 1 ? 200 : 40;
    ConcordanceSettings settings;
    settings.allowWordsWithNumerals = random() % 2 == 0;
    const Text text = RandomText(alphabets[round % alphabets.size()], mostParts, random);
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

// Long enough to be composed on several threads.
TEST(ListingText, OfALongTextIsWholeUpToAStopOrAWordThatCannotBeListed) {
  std::vector<Text> words;
  for (const char16_t first : std::u16string_view(u"abcdefghijklmnopqrst")) {
    for (const char16_t second : std::u16string_view(u"abcdefghijklmnopqrst")) {
      words.push_back(Text{u'w', first, second} + u". ");
    }
  }
  std::mt19937 random(20261121);
  const Text text = RandomText(words, 20000, random) + RandomText(words, 20000, random);
  ConcordanceSettings settings;
  const Text whole = FastListing(text, settings);
  EXPECT_EQ(whole, naive::ListWords(text, settings));
  SilentProgress ui;
  const Listing listing = ScanText(text, settings, ui);
  EXPECT_GT(listing.words->counts.totalOccurrences, 16384);
  std::string part;
  Compose(
      listing,
      [&](std::string_view piece) {
        part += piece;
        ui.RequestStop();
        return true;
      },
      ui);
  EXPECT_LT(part.size(), whole.size());
  EXPECT_TRUE(whole.starts_with(DecodeAnsi(part)));
  ui.ClearStop();
  const Text frequent = DecodeAnsi(Repeated("zebu ", 32768));
  const std::string listed = Composed(ScanText(text + frequent + u"zzz.", settings, ui), ui);
  EXPECT_EQ(listed.find("[zebu"), std::string::npos);
  EXPECT_NE(listed.find("[wab"), std::string::npos);
}

}  // namespace
}  // namespace quorvel
