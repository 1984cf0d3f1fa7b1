#include "output/occurrence_rows.h"

#include <gtest/gtest.h>

#include "lists/wildcard.h"
#include "lists/word_file.h"
#include "output/listing_order.h"
#include "support/made_texts.h"
#include "support/scanned_text.h"
#include "support/scripted_conversation.h"
#include "util/ansi.h"
#include "util/characters.h"

namespace quorvel {
namespace {

std::string Table(const Listing& listing, RowFormat format) {
  SilentProgress nobody;
  std::string bytes;
  ComposeRows(
      listing, {format, {}},
      [&bytes](std::string_view piece) {
        bytes += piece;
        return true;
      },
      nobody);
  return bytes;
}

// Whether a search for the keywords finds a word in this context.
bool IsFound(const std::u16string& word, const std::u16string& context, const KeywordLists& lists) {
  const std::u16string lower = ToLowerCase(word);
  if (BinarySearch(lists.fileKeywords, lower)) return true;
  const std::u16string lowerContext = ToLowerCase(context);
  const auto words = SplitAtBlanks(lowerContext);
  const auto& keywords = lists.extraKeywords.Keywords();
  return std::any_of(keywords.begin(), keywords.end(), [&](const ExtraKeyword& keyword) {
    const auto isNear = [&keyword](std::u16string_view one) {
      return MatchesWildcard(one, keyword.contextPattern);
    };
    return MatchesWildcard(lower, keyword.wildcardPattern) &&
           (!keyword.hasContextPattern || std::any_of(words.begin(), words.end(), isNear));
  });
}

// The table that it should be, field after field; `lists` null for all occurrences.
std::string ExpectedTable(const Listing& listing, const KeywordLists* lists) {
  std::string rows = "word\tkey\tcount\tleft\tmatch\tright\tposition\n";
  const ListingOptions& options = listing.options;
  const ContextCutter cutter(listing.Source().ansiText,
                             {options.contextSize, options.showLineBreaks});
  for (const ListedWord& listed : WordsInOrder(*listing.words, options.wordOrder)) {
    const WordEntry& word = *listed.entry;
    for (const std::int32_t position : word.positions) {
      std::string copies;
      copies.reserve(3 * cutter.LongestContext(MAX_WORD_LENGTH));
      const std::u16string& text = listing.Source().documentText;
      const TextSpan span = SpanOfOccurrence(text, word.word, position);
      const auto parts = cutter.CutApart(position, word.word.size(), span, copies);
      const auto context = cutter.Cut(position, word.word.size(), copies);
      if (lists != nullptr && !IsFound(word.word, DecodeAnsi(context), *lists)) continue;
      const std::u16string match = text.substr(span.begin, span.end - span.begin);
      EXPECT_TRUE(match == word.word || match == word.word + u's');
      for (const std::u16string& field :
           {word.word, word.sortKey, DecodeAnsi(std::to_string(word.Count())),
            DecodeAnsi(parts.left), match, DecodeAnsi(parts.right)}) {
        rows += EncodeUtf8(field) + "\t";
      }
      rows += std::to_string(span.begin + 1) + "\n";
    }
  }
  return rows;
}

TEST(OccurrenceRows, AreThoseOfTheListingThatAnyKeywordFinds) {
  const std::vector<const char16_t*> keywords = {u"sea",    u"c*",       u"cat+dog", u"*+\u00e9t*",
                                                 u"d*+c?t", u"*+d*g,",   u"cat+",    u"sea+*a*",
                                                 u"cat",    u"dog+(x2)", u"*+?x#?"};
  const std::vector<std::u16string> parts = {
      u"cat ",      u"dogs ", u"dog, ", u"sea ",  u"\u00c9t\u00e9 ", u"/ ",      u"Cat--",
      u"\"\u0081 ", u"\\ ",   u"TV-s ", u"x12s ", u"\u007f",         u"\u20ac ", u"to of "};
  std::mt19937 random(7);
  for (int round = 0; round < 300; ++round) {
    SilentProgress nobody;
    ConcordanceSettings settings;
    settings.contextSize = 1 + round % 3;
    settings.allowWordsWithNumerals = true;
    settings.wordOrder = round % 2 == 0 ? WordOrder::alphabetical : WordOrder::byFrequency;
    settings.showLineBreaks = round % 4 < 2;
    const Listing all = ScanText(RandomText(parts, 80, random), settings, nobody);
    EXPECT_EQ(Table(all, RowFormat::tsv), ExpectedTable(all, nullptr)) << round;
    KeywordLists lists;
    const auto anyKeyword = [&] { return ExtraKeywordOf(keywords[random() % keywords.size()]); };
    lists.extraKeywords = ExtraKeywordList({anyKeyword(), anyKeyword(), anyKeyword()});
    if (round % 5 == 0) lists.fileKeywords = {u"dog"};
    settings.mode = Mode::search;
    EXPECT_EQ(Table(ListingOf(all.words->words, settings, lists), RowFormat::tsv),
              ExpectedTable(all, &lists))
        << round;
  }
}

TEST(OccurrenceRows, StandWhereTheirWordsStand) {
  const std::string head = "word\tkey\tcount\tleft\tmatch\tright\tposition\n";
  const std::tuple<int, std::u16string, std::string> rows[] = {
      // A plural at the front and at the end, contexts as cut there.
      {2, u"cats or dogs", head + "cat\tcat\t1\t\tcats\t or\t1\ndog\tdog\t1\tor \tdogs\t\t9\n"},
      // A context that ends before its word.
      {2, u"we go to it so as to be at it if we do so as to be us as we go at dawn",
       head + "dawn\tdawn\t1\tgo at\tdawn\t\t67\n"},
      {0, u"\u00c9tat or dogs or dog. to", "word\tkey\tcount\ndog\tdog\t2\n\u00c9tat\tetat\t1\n"}};
  for (const auto& [contextSize, text, expected] : rows) {
    SilentProgress nobody;
    ConcordanceSettings settings;
    settings.contextSize = contextSize;
    EXPECT_EQ(Table(ScanText(text, settings, nobody), RowFormat::tsv), expected);
  }
}

TEST(OccurrenceRows, AsJsonAreAnArrayWithALineEach) {
  SilentProgress nobody;
  ConcordanceSettings settings;
  settings.contextSize = 1;
  const Listing listing =
      ScanText(u"of us \"\x81\x9d\x7f\xa0\x1f\u20ac cat \\n\" to cats us it", settings, nobody);
  EXPECT_EQ(Table(listing, RowFormat::json),
            "[\n"
            R"({"word":"cat","key":"cat","count":2,)"
            "\"left\":\"\\\"\\u0081\\u009d\\u007f\u00a0\\u001f€ \","
            R"("match":"cat","right":" \\n\"","position":15})"
            ",\n"
            R"({"word":"cat","key":"cat","count":2,"left":"to ","match":"cats","right":" us",)"
            R"("position":26})"
            "\n]\n");
  EXPECT_EQ(Table(ScanText(u"to it", settings, nobody), RowFormat::json), "[\n]\n");
}

// The pieces of a long table, up to a stop, or to the first one if no more are wanted.
std::vector<std::string> PiecesOfRows(bool wantsMore) {
  ScriptedConversation ui;
  const auto text = DecodeAnsi(Repeated("the sea ", 32768));  // more than a listing takes
  const Listing listing = ScanText(text, {}, ui);
  ui.stopAtYield = ui.yields + 1;
  std::vector<std::string> pieces;
  ComposeRows(
      listing, {RowFormat::json, {}},
      [&](std::string_view piece) {
        pieces.emplace_back(piece);
        return wantsMore;
      },
      ui);
  return pieces;
}

TEST(OccurrenceRows, EndWhereTheUserWants) {
  EXPECT_EQ(PiecesOfRows(false).size(), 1U);
  const std::vector<std::string> pieces = PiecesOfRows(true);
  EXPECT_GT(pieces.size(), 10U);
  for (const std::string& piece : pieces) EXPECT_LT(piece.size(), 300000U);
  EXPECT_TRUE(pieces.back().ends_with("\"position\":262141}\n]\n")) << "the last \"sea\"";
}

TEST(OccurrenceRows, ShowHowFarTheyAre) {
  std::u16string text;
  for (int i = 0; i < 200; ++i) {
    text += {u'w', u'o', static_cast<char16_t>(u'a' + i / 20), static_cast<char16_t>(u'a' + i % 20),
             u' '};
  }
  ScriptedConversation ui;
  const Listing listing = ScanText(text, {}, ui);
  ui.bars.clear();
  ComposeRows(
      listing, {RowFormat::tsv, {}}, [](std::string_view) { return true; }, ui);
  EXPECT_EQ(ui.bars.size(), PROGRESS_BAR_WIDTH + 2U) << "from an empty one to none";
}

}  // namespace
}  // namespace quorvel
