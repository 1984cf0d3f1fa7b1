#include "output/occurrence_rows.h"

#include <gtest/gtest.h>

#include "lists/wildcard.h"
#include "lists/word_file.h"
#include "naive/naive_forms.h"
#include "support/made_texts.h"
#include "support/scanned_text.h"
#include "support/scripted_conversation.h"
#include "util/ansi.h"
#include "util/characters.h"

namespace quorvel {
namespace {

using Text = std::u16string;
using TableRow = std::vector<Text>;  // its fields
enum Column { WORD, KEY, COUNT, LEFT, MATCH, RIGHT, POSITION, COLUMNS };

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

std::vector<Text> Split(const Text& text, char16_t by) {
  std::vector<Text> parts(1);
  for (const char16_t ch : text) {
    if (ch != by) parts.back() += ch;
    if (ch == by) parts.emplace_back();
  }
  return parts;
}

std::vector<TableRow> RowsOf(const Listing& listing) {
  std::vector<TableRow> rows;
  for (const Text& line : Split(DecodeUtf8(Table(listing, RowFormat::tsv)), u'\n')) {
    rows.push_back(Split(line, u'\t'));
  }
  EXPECT_EQ(rows.back(), TableRow{Text()});  // the table ends with a line end
  rows.pop_back();
  rows.erase(rows.begin());
  return rows;
}

Text ContextOf(const TableRow& row) { return row[LEFT] + row[MATCH] + row[RIGHT]; }

// The listing, made anew of the rows; each row is looked at by itself on the way.
Text ListingOfRows(const std::vector<TableRow>& rows, const Text& text,
                   const ConcordanceSettings& settings) {
  Text listing;
  for (std::size_t i = 0; i < rows.size();) {
    const TableRow& first = rows[i];
    std::vector<Text> contexts;
    for (; i < rows.size() && rows[i][WORD] == first[WORD]; ++i) {
      EXPECT_EQ(rows[i].size(), COLUMNS);
      const std::size_t place = std::stoul(EncodeUtf8(rows[i][POSITION])) - 1;
      EXPECT_EQ(text.substr(place, rows[i][MATCH].size()), rows[i][MATCH]);
      EXPECT_TRUE(rows[i][MATCH] == first[WORD] || rows[i][MATCH] == first[WORD] + u's');
      contexts.push_back(ContextOf(rows[i]));
    }
    EXPECT_EQ(EncodeUtf8(first[COUNT]), std::to_string(contexts.size()));
    EXPECT_EQ(first[KEY], ToLowerCase(FoldForKey(first[WORD])));
    listing += naive::ComposeEntry(first[WORD], contexts, settings);
  }
  return listing.erase(0, 2);
}

// Away from the ends of the text every context holds its word.
Text Padded(const Text& text) {
  const Text padding = DecodeAnsi(Repeated("to it of us ", 20));
  return padding + text + u' ' + padding;
}

const std::vector<std::vector<Text>> ALPHABETS = {
    {u"the ", u"old ", u"harbour ", u"harbours, ", u"/ ", u"/ / ", u". "},
    {u"the ", u"sea ", u"(x2) ", u"(x ", u" (x2)", u"/ (x3) "},
    {u"cats ", u"Cat", u"s ", u" -", u"- ", u"--", u"«", u"»s ", u"»", u"\"", u"\\"},
    {u"TV-s ", u"x12s ", u"90s", u" ", u"-", u"'s ", u"ass ", u"<!-- ", u"-->"},
    {u"\u00e9t\u00e9s ", u"\u00c4rsche ", u"Arsche ", u"\u20ac", u"\u0081 ", u"\u007f", u"sea "}};

TEST(OccurrenceRows, GroupedMergedAndMarkedAreTheListing) {
  std::mt19937 random(20261121);
  for (int round = 0; round < 1000 && !HasFailure(); ++round) {
    ConcordanceSettings settings;
    settings.contextSize = 1 + static_cast<int>(random() % 9);
    settings.wordOrder = random() % 2 == 0 ? WordOrder::alphabetical : WordOrder::byFrequency;
    settings.showFrequencies = random() % 4 != 0;
    settings.showLineBreaks = random() % 2 == 0;
    settings.allowWordsWithNumerals = random() % 2 == 0;
    settings.ignoreInfrequentWords = random() % 4 == 0;
    SilentProgress nobody;
    const std::vector<Text>& parts = ALPHABETS[static_cast<std::size_t>(round) % ALPHABETS.size()];
    const Listing listing = ScanText(Padded(RandomText(parts, 60, random)), settings, nobody);
    const Text& text = listing.Source().documentText;
    EXPECT_EQ(ListingOfRows(RowsOf(listing), text, settings), DecodeAnsi(Composed(listing, nobody)))
        << testing::PrintToString(text);
  }
}

// Whether a search for the keywords finds the occurrence.
bool IsFound(const TableRow& row, const KeywordLists& lists) {
  const Text word = ToLowerCase(row[WORD]);
  if (BinarySearch(lists.fileKeywords, word)) return true;
  const Text context = ToLowerCase(ContextOf(row));
  const auto words = SplitAtBlanks(context);
  const auto& keywords = lists.extraKeywords.Keywords();
  return std::any_of(keywords.begin(), keywords.end(), [&](const ExtraKeyword& keyword) {
    const auto isNear = [&keyword](std::u16string_view one) {
      return MatchesWildcard(one, keyword.contextPattern);
    };
    return MatchesWildcard(word, keyword.wildcardPattern) &&
           (!keyword.hasContextPattern || std::any_of(words.begin(), words.end(), isNear));
  });
}

TEST(OccurrenceRows, OfASearchAreThoseThatAnyKeywordFinds) {
  const std::vector<const char16_t*> keywords = {u"sea",    u"c*",       u"cat+dog", u"*+\u00e9t*",
                                                 u"d*+c?t", u"*+d*g,",   u"cat+",    u"sea+*a*",
                                                 u"cat",    u"dog+(x2)", u"*+?x#?"};
  std::mt19937 random(7);
  for (int round = 0; round < 300; ++round) {
    SilentProgress nobody;
    ConcordanceSettings settings;
    settings.contextSize = 1 + round % 3;
    const Listing all =
        ScanText(Padded(RandomText<Text>({u"cat ", u"dogs ", u"dog, ", u"sea ", u"\u00c9t\u00e9 "},
                                         40, random)),
                 settings, nobody);
    std::vector<TableRow> expected = RowsOf(all);
    KeywordLists lists;
    const auto anyKeyword = [&] { return ExtraKeywordOf(keywords[random() % keywords.size()]); };
    lists.extraKeywords = ExtraKeywordList({anyKeyword(), anyKeyword(), anyKeyword()});
    if (round % 5 == 0) lists.fileKeywords = {u"dog"};
    settings.mode = Mode::search;
    std::erase_if(expected, [&](const TableRow& row) { return !IsFound(row, lists); });
    EXPECT_EQ(RowsOf(ListingOf(all.words->words, settings, lists)), expected) << round;
  }
}

TEST(OccurrenceRows, StandWhereTheirWordsStand) {
  const std::tuple<int, Text, std::string> rows[] = {
      // A plural at the front and at the end, contexts as cut there.
      {2, u"cats or dogs", "cat\tcat\t1\t\tcats\t or\t1\ndog\tdog\t1\tor \tdogs\t\t9\n"},
      // A context that ends before its word.
      {2, u"we go to it so as to be at it if we do so as to be us as we go at dawn",
       "dawn\tdawn\t1\tgo at\tdawn\t\t67\n"},
      {0, u"\u00c9tat or dogs or dog. to", "dog\tdog\t2\n\u00c9tat\tetat\t1\n"}};
  for (const auto& [contextSize, text, expected] : rows) {
    SilentProgress nobody;
    ConcordanceSettings settings;
    settings.contextSize = contextSize;
    const Listing listing = ScanText(text, settings, nobody);
    const std::string table = Table(listing, RowFormat::tsv);
    EXPECT_EQ(table.substr(table.find('\n') + 1), expected);
  }
}

TEST(OccurrenceRows, AsJsonAreAnArrayWithALineEach) {
  SilentProgress nobody;
  ConcordanceSettings settings;
  settings.contextSize = 1;
  const Listing listing =
      ScanText(u"of us \"\x81\x7f\t\u20ac cat \\n\" to cats us it", settings, nobody);
  EXPECT_EQ(Table(listing, RowFormat::json),
            "[\n"
            R"({"word":"cat","key":"cat","count":2,"left":"\"\u0081\u007f\u0009€ ",)"
            R"("match":"cat","right":" \\n\"","position":13})"
            ",\n"
            R"({"word":"cat","key":"cat","count":2,"left":"to ","match":"cats","right":" us",)"
            R"("position":24})"
            "\n]\n");
  EXPECT_EQ(Table(ScanText(u"to it", settings, nobody), RowFormat::json), "[\n]\n");
}

TEST(OccurrenceRows, EndWhereTheUserWants) {
  ScriptedConversation ui;
  const Text text = DecodeAnsi(Repeated("the sea ", 32768));  // more than a listing takes
  const Listing listing = ScanText(text, {}, ui);
  std::size_t longest = 0;
  std::string last;
  const auto take = [&](std::string_view piece) {
    longest = std::max(longest, piece.size());
    last = piece;
    return true;
  };
  ui.stopAtYield = ui.yields + 1;
  ComposeRows(listing, {RowFormat::json, {}}, take, ui);
  EXPECT_TRUE(last.ends_with("}\n]\n"));
  EXPECT_NE(last.find("\"sea\","), std::string::npos);
  EXPECT_EQ(last.find("\"the\","), std::string::npos);
  EXPECT_LT(longest, 300000U);
}

}  // namespace
}  // namespace quorvel
