#include "lines/line_order.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>

#include "lines/context_words.h"
#include "support/made_texts.h"
#include "support/scanned_text.h"
#include "support/scripted_conversation.h"
#include "util/ansi.h"
#include "util/utf8.h"

namespace quorvel {
namespace {

using Text = std::u16string;

// A document in the Unicode reading: with a code page or, if `isWide`, without one.
std::shared_ptr<const Document> UnicodeDocument(const Text& text, bool isWide) {
  const auto document = MakeUnicodeDocument({}, {.reading = Reading::unicode}, EncodeUtf8(text), 0);
  Document changed = *document;
  if (isWide) changed.codePage = nullptr;
  return std::make_shared<const Document>(std::move(changed));
}

TEST(ContextWords, AreFoldedFromTheMatchOutwards) {
  const struct {
    const char* name;
    Text context, right, left;
    int from = 1;
  } rows[] = {
      {"nothing", u"", u"", u""},
      {"blanks at both ends", u"  the  sea ", u"the sea ", u"sea the "},
      {"from the second on", u"to the Sea", u"the sea ", u"the to ", 2},
      {"from behind the last", u"to us", u"", u"", 3},
      {"punctuation", u", \"Ships-of\" it; - / (don't)", u"ships-of it dont ",
       u"dont it ships-of "},
      {"what is no word does not count", u"... -- a / b ...", u"b ", u"a ", 2},
      {"accents and digits", u"Über 20 Étés", u"ueber 20 etes ", u"etes 20 ueber "},
      {"letters of two code units", u"\U00010400\U0001F6A2 it", u"\U00010428 it ",
       u"it \U00010428 "},
      {"the last code unit", u"\uFFFF it", u"it ", u"it "},
      {"joined to the match", u"'s light of l'", u"light of l ", u"of light s "},
      {"by another apostrophe", u"\u2019s light of l\u2019", u"light of l ", u"of light s "}};
  for (const auto& row : rows) {
    for (const bool isWide : {false, true}) {
      const auto document = UnicodeDocument(row.context, isWide);
      WithQuotation(*document, [&](const auto& quotation) {
        ContextWords words(quotation, document->AlphabetOf());
        Text right;
        words.AppendRight(right, quotation.Text(), row.from);
        EXPECT_EQ(right, row.right) << row.name;
        Text left;
        words.AppendLeft(left, quotation.Text(), row.from);
        EXPECT_EQ(left, row.left) << row.name;
      });
    }
  }
}

// The places of all lines of a text, in an order.
std::string PlacesInOrder(const LineSource& source, const LineOrder& order) {
  SilentProgress nobody;
  std::vector<EntryIndex> entries = EntriesOf(*source.words.table);
  std::ranges::reverse(entries);
  Lines lines = *LinesOf(source, entries, nobody);
  EXPECT_TRUE(OrderLines(lines, source, order, nobody));
  return WithQuotation(*source.words.document, [&](const auto& quotation) {
    LineReader reader(source, quotation);
    std::string places;
    for (const Line& line : lines)
      places += std::to_string(reader.Read(line).place.begin + 1) + " ";
    return places;
  });
}

TEST(LineOrder, GoesByPlaceMatchOrOneSide) {
  using enum LineKey;
  const std::pair<LineOrder, std::string> rows[] = {
      {{}, "4 12 19 28 35 42 "},
      {{.key = place, .isDescending = true}, "42 35 28 19 12 4 "},
      {{.key = right}, "42 35 4 28 12 19 "},
      {{.key = right, .isDescending = true}, "19 12 28 4 35 42 "},
      {{.key = right, .fromWord = 2}, "42 19 28 35 4 12 "},
      {{.key = right, .fromWord = 2, .isDescending = true}, "12 4 19 28 35 42 "},
      {{.key = left}, "4 12 42 35 19 28 "},
      {{.key = left, .fromWord = 2}, "4 12 19 35 42 28 "},
      {{.key = match}, "4 12 28 35 42 19 "}};
  const auto text = u"of sea, it Sea to seas, us SEA so sea it sea it";
  SilentProgress nobody;
  const LineSource source = {ScanWords(DocumentOf(text), nullptr, nobody), nullptr, {2, false}};
  for (const auto& [order, places] : rows) {
    EXPECT_EQ(PlacesInOrder(source, order), places)
        << static_cast<int>(order.key) << order.fromWord << order.isDescending;
  }
}

// The words of one side, found in a slow, obvious way.
std::vector<Text> NaiveWords(const Text& side, bool isLeft) {
  std::vector<Text> words;
  Text word;
  for (const char16_t ch : side + u' ') {
    if (ch != u' ') {
      word += ch;
      continue;
    }
    Text kept;
    std::ranges::copy_if(word, std::back_inserter(kept), [](char16_t one) {
      return latin.IsWordCharacterAt({&one, 1}, 0);
    });
    const auto counts = [](char16_t one) { return latin.IsLetter(one) || latin.IsDigit(one); };
    if (std::ranges::any_of(kept, counts)) words.push_back(latin.SortKey(kept));
    word.clear();
  }
  if (isLeft) std::ranges::reverse(words);
  return words;
}

// A text long enough for a sort in steps, with many equal contexts.
TEST(LineOrder, IsThatOfTheSlowWay) {
  std::mt19937 random(19);
  SilentProgress nobody;
  const Text parts[] = {u"sea ",  u"ships ", u"Été, ", u"to ", u"-- ",
                        u"(the ", u"a-b) ",  u"20 ",   u"/ "};
  Text said;
  for (int i = 0; i < 60000; ++i) said += parts[random() % std::size(parts)];
  const auto document = DocumentOf(said);
  const LineSource source = {ScanWords(document, nullptr, nobody), nullptr, {3, false}};
  ASSERT_GT(source.words.table->WordCount(), 3);
  Lines lines = *LinesOf(source, Entries({0, 1, 2, 3}), nobody);
  ASSERT_GT(lines.size(), 16384U);
  for (const LineKey key : {LineKey::left, LineKey::right}) {
    LineReader reader(source, Quotation<char>(*document));
    using Keyed = std::tuple<std::vector<Text>, Position>;
    std::vector<Keyed> keyed;
    for (const Line& line : lines) {
      const auto text = reader.Read(line);
      const bool isLeft = key == LineKey::left;
      keyed.emplace_back(NaiveWords(DecodeAnsi(isLeft ? text.left : text.right), isLeft),
                         line.position);
    }
    std::ranges::sort(keyed);
    Lines ordered = lines;
    std::ranges::shuffle(ordered, random);
    ASSERT_TRUE(OrderLines(ordered, source, {.key = key}, nobody));
    EXPECT_TRUE(std::ranges::equal(ordered, keyed, {}, &Line::position,
                                   [](const Keyed& one) { return std::get<1>(one); }));
  }
}

TEST(LineOrder, CanBeStopped) {
  SilentProgress nobody;
  const auto document = DocumentOf(DecodeAnsi(Repeated("the sea ", 40000)));
  const LineSource source = {ScanWords(document, nullptr, nobody), nullptr, {2, false}};
  const std::vector<EntryIndex> entries = Entries({0, 1});
  for (const int atYield : {1, 15, 25}) {
    ScriptedConversation ui;
    ui.stopAtYield = atYield;
    EXPECT_FALSE(LinesOf(source, entries, ui));
    EXPECT_FALSE(LinesOf(source, Entries({1}), ui));
    Lines lines = *LinesOf(source, entries, nobody);
    ui.ClearStop();
    ui.yields = 0;
    EXPECT_FALSE(OrderLines(lines, source, {.key = LineKey::right}, ui));
    EXPECT_EQ(lines.size(), 80000U);
  }
}

}  // namespace
}  // namespace quorvel
