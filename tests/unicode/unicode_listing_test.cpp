// A text that Windows-1252 holds is listed as Unicode just as it is in Windows-1252.

#include <gtest/gtest.h>

#include "output/occurrence_rows.h"
#include "support/made_texts.h"
#include "support/scanned_text.h"

namespace quorvel {
namespace {

std::string RowsOf(const Listing& listing) {
  SilentProgress nobody;
  std::string rows;
  ComposeRows(
      listing, {RowFormat::json, {}},
      [&rows](std::string_view piece) {
        rows += piece;
        return true;
      },
      nobody);
  return rows;
}

TEST(UnicodeListing, IsThatOfWindows1252) {
  const std::vector<std::u16string> parts = {
      u"cat", u"the",   u" ",   u" ",       u" ",   u". ",    u" / ",    u"-",     u"--",
      u"s ",  u"Œuvre", u"œil", u"Été",     u"'s ", u"»s",    u"« ",     u" (x2)", u"Über",
      u"ß",   u"Ðo",    u"ðo ", u"didn't ", u"20",  u"“",     u"\u2019", u"…",     u"\u00a0",
      u"€ ",  u"Šál",   u"Ÿ",   u"ˆ",       u"×",   u"\u0081"};
  SilentProgress nobody;
  std::mt19937 random(18);
  for (int round = 0; round < 1500; ++round) {
    const auto narrow = DocumentOf(RandomText(parts, round % 50 == 0 ? 600 : 40, random));
    const auto wide =
        MakeUnicodeDocument({}, {.reading = Reading::unicode}, EncodeUtf8(narrow->documentText), 0);
    ConcordanceSettings settings;
    settings.contextSize = static_cast<int>(random() % 10);
    settings.showLineBreaks = random() % 2 == 0;
    settings.allowWordsWithNumerals = random() % 2 == 0;
    if (random() % 2 == 0) settings.mode = Mode::search;
    KeywordLists keywords;
    keywords.fileKeywords = {u"cat", u"œil"};
    const std::vector<ExtraKeyword> extra = {ExtraKeywordOf(u"??u*+*é*"), ExtraKeywordOf(u"ð*")};
    ASSERT_EQ(wide->documentText, narrow->documentText);
    keywords.extraKeywords = ExtraKeywordList(extra, LATIN);
    const Listing listing = ListingOf(ScanWords(narrow, nullptr, nobody), settings, keywords);
    keywords.extraKeywords = ExtraKeywordList(extra, Alphabet::Unicode());
    const Listing inUnicode = ListingOf(ScanWords(wide, nullptr, nobody), settings, keywords);
    ASSERT_EQ(Composed(inUnicode, nobody), EncodeUtf8(DecodeAnsi(Composed(listing, nobody))));
    ASSERT_EQ(RowsOf(inUnicode), RowsOf(listing));
  }
}

}  // namespace
}  // namespace quorvel
