#include <gtest/gtest.h>

#include "naive/naive_forms.h"
#include "output/listing.h"
#include "support/scanned_text.h"
#include "support/scripted_interface.h"
#include "util/ansi.h"

namespace quorvel {
namespace {

using Text = std::u16string;

std::string Ansi(const Text& text) {
  std::string bytes;
  AppendAnsi(bytes, text);
  return bytes;
}

std::string FastListing(const Text& text, const ConcordanceSettings& settings) {
  ScriptedInterface ui;
  RunState state = ScanText(text, settings, ui);
  (void)ListWords(state, ui);
  return state.outputText;
}

std::string NaiveListing(const Text& text, const ConcordanceSettings& settings) {
  return Ansi(naive::ListWords(text, settings));
}

std::string Describe(const Text& text, const ConcordanceSettings& settings) {
  return "text: " + testing::PrintToString(text) + "\ncontext size " +
         std::to_string(settings.contextSize) +
         (settings.wordOrder == WordOrder::byFrequency ? ", by frequency" : ", alphabetical") +
         (settings.showFrequencies ? ", frequencies" : "") +
         (settings.showLineBreaks ? ", line breaks" : "") +
         (settings.allowWordsWithNumerals ? ", numerals" : "");
}

void CompareWithNaive(const Text& text, ConcordanceSettings settings) {
  for (int choice = 0; choice < 80; ++choice) {
    settings.contextSize = choice / 8;
    settings.wordOrder = choice % 2 == 0 ? WordOrder::alphabetical : WordOrder::byFrequency;
    settings.showFrequencies = choice / 2 % 2 == 0;
    settings.showLineBreaks = choice / 4 % 2 == 0;
    ASSERT_EQ(FastListing(text, settings), NaiveListing(text, settings))
        << Describe(text, settings);
  }
}

TEST(ListingText, Entries) {
  struct Row {
    const char* name;
    Text text;
    int contextSize;
    bool showFrequencies;
    bool showLineBreaks;
    const char* stopWords;
    Text expected;
  };
  const Text harbour =
      u"So it is of the old harbour was silent of the old harbour was silent of the harbour "
      u"master's house to us.";
  Text repeated = u"to ";
  for (int i = 0; i < 13; ++i) repeated += u"x12 to ";
  // The long word ends the window before the context is complete.
  const Text cut = u"to a dog abcdefghijklmnopqrstuvwxyzabcdefghijklmnopqrstuvwxyz ";
  const Text marked = u"to a dog--(x2) is ";
  const Text start = u"of us so it is to be or it is so to us of it ";
  const Row rows[] = {
      {"counted", harbour, 2, true, false, "house master of old silent the was",
       u"[harbour 3]\r\n... the old «harbour» was silent (x2)\r\n"
       u"... of the «harbour» master's house\r\n"},
      {"not counted", harbour, 2, false, false, "house master of old silent the was",
       u"[harbour]\r\n... the old «harbour» was silent\r\n"
       u"... of the «harbour» master's house\r\n"},
      {"bare words", u"Cats and cats or cats.", 0, true, false, "and", u"Cat 1\r\ncat 2\r\n"},
      {"bare words, not counted", u"Cats and cats or cats.", 0, false, false, "and",
       u"Cat\r\ncat\r\n"},
      {"line breaks taken out", u"a b / c / dog / e f / g h i", 2, true, false, "",
       u"[dog 1]\r\n... b c «dog» e f\r\n"},
      {"line breaks shown, not counted as words", u"a b / c / dog / e f / g h i", 2, true, true, "",
       u"[dog 1]\r\n... b / c / «dog» / e f\r\n"},
      {"nothing but the word", u"harbour", 5, true, false, "", u"[harbour 1]\r\n... \r\n"},
      {"a context that would begin with a line break taken out", u"  /  one", 2, true, false, "",
       u"[one 1]\r\n... \r\n"},
      {"a text too short for its context", u"It was harbour.", 5, true, false, "",
       u"[harbour 1]\r\n... \r\n\r\n[was 1]\r\n... «was» \r\n"},
      {"the word that ends the text is cut off", u"of us at sea in a cove", 2, true, false, "sea",
       u"[cove 1]\r\n... a \r\n"},
      {"a neighbour longer than the window", u"of abcdefghijklmnopqrstuvwxyzabcdef sea by us at", 1,
       true, false, "", u"[sea 1]\r\n...  «sea» by\r\n"},
      {"blanks of blanked hyphens count, those passed over on the left do not",
       u"to us by--sea--by us to be or not", 2, true, false, "not",
       u"[sea 1]\r\n... by  «sea»  by\r\n"},
      {"the word everywhere, its capital and its plural", u"to cats, Cat scatter Cats CAT to.", 3,
       true, false, "scatter",
       u"[CAT 1]\r\n... Cat scatter Cats «CAT» \r\n\r\n"
       u"[Cat 2]\r\n...  cats, «Cat» scatter «Cats» CAT \r\n... «Cat» scatter «Cats» CAT \r\n\r\n"
       u"[cat 1]\r\n...  «cats», «Cat» s«cat»ter «Cats» CAT \r\n"},
      {"the spelling goes before the capital", u"to aba Ababa to it", 1, true, false, "ababa",
       u"[aba 1]\r\n... «aba» Ab«aba» to\r\n"},
      {"marks of the text", u"to »s cat »ss «cat» to.", 3, false, false, "",
       u"[cat]\r\n...  s» «cat» s»s ««cat»» \r\n... «cat» s»s ««cat»»\r\n"},
      {"a marker of the text is none of its own", u"a dog (x2) . a dog (x2) . a dog (x2) . ", 1,
       true, false, "", u"[dog 3]\r\n... «dog» (x2) .\r\n... a «dog» (x2)\r\n... a «dog» (x2)\r\n"},
      {"a context equals one less the text's marker", start + marked + cut, 2, true, false, "",
       u"[dog 2]\r\n... to a «dog»  (x2) (x2)\r\n"},
      {"... and no more once that is marked", start + marked + cut + marked + cut + cut, 2, true,
       false, "", u"[dog 5]\r\n... to a «dog»  (x2) (x3)\r\n... to a «dog»  (x2)\r\n"},
      {"the word within the marker", repeated + u"it", 1, true, false, "",
       u"[x12 13]\r\n... «x12» to «x12»\r\n... to «x12» to («x12»)\r\n"},
  };
  for (const Row& row : rows) {
    ConcordanceSettings settings;
    settings.contextSize = row.contextSize;
    settings.showFrequencies = row.showFrequencies;
    settings.showLineBreaks = row.showLineBreaks;
    settings.allowWordsWithNumerals = true;
    settings.extraStopWords = row.stopWords;
    EXPECT_EQ(FastListing(row.text, settings), Ansi(row.expected)) << row.name;
    EXPECT_EQ(NaiveListing(row.text, settings), Ansi(row.expected)) << row.name;
  }
}

TEST(ListingText, StoppedListingEndsWithACompleteEntry) {
  ScriptedInterface ui;
  RunState state = ScanText(u"the sea. the old sea.", {}, ui);
  state.settings.contextSize = 1;
  ui.stopAtYield = 2;
  EXPECT_EQ(ListWords(state, ui), ListingOutcome::stopped);
  EXPECT_EQ(state.outputText,
            Ansi(u"[old 1]\r\n... the «old» \r\n\r\n[sea 2]\r\n... «sea». the old\r\n... old\r\n"));
  EXPECT_EQ(ui.appends.back(), "\r\nListing stopped.\r\n");
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
  for (int round = 0; round < 480 && !HasFatalFailure(); ++round) {
    const std::size_t mostParts = round % 4 == 0 ? 12 : round % 50 == 1 ? 200 : 40;
    ConcordanceSettings settings;
    settings.allowWordsWithNumerals = random() % 2 == 0;
    CompareWithNaive(RandomText(alphabets[static_cast<std::size_t>(round) % alphabets.size()],
                                mostParts, random),
                     settings);
  }
}

}  // namespace
}  // namespace quorvel
