// A text with only characters of Windows-1252 has the same listing in both readings.

#include <gtest/gtest.h>

#include "output/occurrence_rows.h"
#include "support/made_texts.h"
#include "support/scanned_text.h"
#include "util/ansi.h"
#include "util/text_form.h"
#include "util/utf8.h"

namespace quorvel {
namespace {

std::string RowsOf(const Listing& listing, const LineOrder& order) {
  SilentProgress nobody;
  std::string rows;
  ComposeRows(
      listing, {.format = RowFormat::json, .order = order},
      [&rows](std::string_view piece) {
        rows += piece;
        return true;
      },
      nobody);
  return rows;
}

TEST(UnicodeListing, IsThatOfWindows1252) {
  const std::vector<std::u16string> parts = {
      u"cat", u"?at",   u" ",   u" ",       u" ",   u". ",    u" / ",    u"-",     u"--",
      u"s ",  u"Œuvre", u"œil", u"Été",     u"'s ", u"»s",    u"« ",     u" (x2)", u"Über",
      u"ß",   u"Ðo",    u"ðo ", u"didn't ", u"20",  u"“",     u"\u2019", u"…",     u"\u00a0",
      u"€ ",  u"Šál",   u"Ÿ",   u"ˆ",       u"×",   u"\u0081"};
  SilentProgress nobody;
  std::mt19937 random(18);
  for (int round = 0; round < 1500; ++round) {
    const auto narrow = DocumentOf(RandomText(parts, round % 50 == 0 ? 600 : 40, random));
    const auto unicode =
        MakeUnicodeDocument({}, {.reading = Reading::unicode}, EncodeUtf8(narrow->documentText), 0);
    Document wide = *unicode;
    wide.codePage = nullptr;  // as if the text had too many different characters for a code page
    ASSERT_EQ(wide.documentText, narrow->documentText);
    ConcordanceSettings settings;
    settings.contextSize = static_cast<int>(random() % 10);
    settings.showLineBreaks = random() % 2 == 0;
    settings.allowWordsWithNumerals = random() % 2 == 0;
    if (random() % 2 == 0) settings.mode = Mode::search;
    KeywordLists keywords;
    keywords.fileKeywords = {u"cat", u"œil"};
    const std::vector<ExtraKeyword> extra = {ExtraKeywordOf(u"??u*+*é*"), ExtraKeywordOf(u"ð*")};
    keywords.extraKeywords = ExtraKeywordList(extra, latin);
    const Listing listing = ListingOf(ScanWords(narrow, nullptr, nobody), settings, keywords);
    keywords.extraKeywords = ExtraKeywordList(extra, Alphabet::Unicode());
    const LineOrder order = {.key = static_cast<LineKey>(random() % 4)};
    for (const auto& document : {unicode, std::make_shared<const Document>(wide)}) {
      const Listing other = ListingOf(ScanWords(document, nullptr, nobody), settings, keywords);
      ASSERT_EQ(Composed(other, nobody), EncodeUtf8(DecodeAnsi(Composed(listing, nobody))));
      ASSERT_EQ(RowsOf(other, order), RowsOf(listing, order));
    }
  }
}

// The lower-case form of "İ" is "i", and its own is "I".
TEST(UnicodeListing, FindsAllCapitalsOfAKeyword) {
  const auto document =
      MakeUnicodeDocument({}, {.reading = Reading::unicode}, "to \u0130stan is Istan istan", 0);
  KeywordLists keywords;
  keywords.fileKeywords = {u"istan"};
  SilentProgress nobody;
  EXPECT_EQ(ScanWords(document, &keywords, nobody).table->WordCount(), 3);
}

// No character is lost or cut, neither with one byte for each character nor with code units.
TEST(UnicodeListing, HoldsWhatItsTextHolds) {
  const std::u16string few = u"“Ώρα” ώρα ?ρα, Ώρα… – ώρα ";
  std::u16string many = few;
  for (char16_t ch = 0x4E00; ch < 0x4F00; ++ch) many.append({ch, u' '});
  const std::u16string pairs = u"ώρα 😀😀 𐌰𐌱𐌲 ώρα 😀ώρα. ";
  ConcordanceSettings settings;
  settings.contextSize = 1;
  SilentProgress nobody;
  const auto composed = [&](const std::u16string& text) {
    const auto document =
        MakeUnicodeDocument({}, {.reading = Reading::unicode}, EncodeUtf8(text), 0);
    const Listing listing = ListingOf(ScanWords(document, nullptr, nobody), settings);
    return InForm(Composed(listing, nobody), Coding::utf8, {Coding::utf8, false});
  };
  const std::string start = "[Ώρα 2]\n... «Ώρα»” ώρα ?ρα,\n... ?ρα, «Ώρα»… –\n\n[ώρα 2]\n";
  for (const std::u16string& text : {few, many}) {
    EXPECT_EQ(composed(text).substr(0, start.size()), start);
  }
  EXPECT_EQ(composed(pairs),
            "[ώρα 3]\n... «ώρα» 😀😀 𐌰𐌱𐌲\n... 𐌰𐌱𐌲 «ώρα» 😀«ώρα».\n... 😀«ώρα».\n\n"
            "[𐌰𐌱𐌲 1]\n... 😀😀 «𐌰𐌱𐌲» ώρα\n");
  EXPECT_EQ(composed(u"a ώρα ?ρα b"), "[ώρα 1]\n... «ώρα» ?ρα \n");
  for (std::u16string before : {u"", u"x"}) {
    for (int i = 0; i < 20; ++i) before += u"😀";
    EXPECT_EQ(composed(before + u" ώρα " + before).find("\uFFFD"), std::string::npos);
  }
}

}  // namespace
}  // namespace quorvel
