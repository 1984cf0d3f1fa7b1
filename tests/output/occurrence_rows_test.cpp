#include "output/occurrence_rows.h"

#include <gtest/gtest.h>

#include "support/made_texts.h"
#include "support/scanned_text.h"
#include "support/scripted_conversation.h"
#include "util/ansi.h"

namespace quorvel {
namespace {

std::string Table(const Listing& listing, RowFormat format) {
  SilentProgress nobody;
  std::string bytes;
  ComposeRows(
      listing, {.format = format},
      [&bytes](std::string_view piece) {
        bytes += piece;
        return true;
      },
      nobody);
  return bytes;
}

constexpr const char* HEAD = "word\tkey\tcount\tleft\tmatch\tright\tposition\n";

TEST(OccurrenceRows, StandWhereTheirWordsStand) {
  const std::tuple<int, std::u16string, std::string> rows[] = {
      {2, u"to us a dog is it so", "dog\tdog\t1\tus a \tdog\t is it\t9\n"},
      {2, u"it / is / dog / so / to us", "dog\tdog\t1\t / is / \tdog\t / so / to\t11\n"},
      // A plural at the beginning and at the end of the text.
      {2, u"cats or dogs", "cat\tcat\t1\t\tcats\t or\t1\ndog\tdog\t1\tor \tdogs\t\t9\n"},
      // A context that ends before its word, as can happen near the end of the text.
      {2, u"we go to it so as to be at it if we do so as to be us as we go at dawn",
       "dawn\tdawn\t1\tgo at\tdawn\t\t67\n"},
      // Words that lost hyphens or their plural "s", and characters outside ASCII.
      {1, u"to -news-- TV-s / \u00e9t\u00e9s-. of \"\u0081\\ \u20ac x12 it",
       "étés\tetes\t1\t\tétés\t-. of \"\u0081\\\t19\nnew\tnew\t1\t-\tnews\t  \t5\n"
       "TV-\ttv-\t1\t\tTV-s\t étés-. of\t12\n"},
      {0, u"\u00c9tat or dogs or dog. to", "dog\tdog\t2\n\u00c9tat\tetat\t1\n"}};
  for (const auto& [contextSize, text, expected] : rows) {
    SilentProgress nobody;
    ConcordanceSettings settings;
    settings.contextSize = contextSize;
    settings.showLineBreaks = contextSize == 2;
    const std::string head = contextSize == 0 ? "word\tkey\tcount\n" : HEAD;
    EXPECT_EQ(Table(ScanText(text, settings, nobody), RowFormat::tsv), head + expected);
  }
}

TEST(OccurrenceRows, AreOfTheLinesThatAreGivenInTheirOrder) {
  SilentProgress nobody;
  ConcordanceSettings settings;
  settings.contextSize = 1;
  const Listing listing = ScanText(u"to us a dog is it so is dog to be", settings, nobody);
  constexpr EntryIndex DOG{0};
  const LineGroup lines[] = {{{DOG, Position{25}}, 12}, {{DOG, Position{9}}, 1}};
  const std::string head = "word\tkey\tcount\tleft\tmatch\tright\tposition";
  for (const bool withTimes : {false, true}) {
    std::string rows;
    ComposeLines(
        listing, lines, withTimes, RowFormat::tsv,
        [&rows](std::string_view piece) {
          rows += piece;
          return true;
        },
        nobody);
    EXPECT_EQ(rows, head + (withTimes ? "\ttimes" : "") + "\ndog\tdog\t2\tis \tdog\t to\t25" +
                        (withTimes ? "\t12" : "") + "\ndog\tdog\t2\ta \tdog\t is\t9" +
                        (withTimes ? "\t1\n" : "\n"));
  }
  const std::vector<LineGroup> many(20000, lines[0]);
  int pieces = 0;
  const auto takeOne = [&pieces](std::string_view /*piece*/) { return ++pieces > 1; };
  ComposeLines(listing, many, false, RowFormat::json, takeOne, nobody);
  EXPECT_EQ(pieces, 1);
  // After a stop the table ends soon, but it is whole.
  ScriptedConversation ui;
  ui.stopAtYield = 2;
  std::string bytes;
  const auto takeAll = [&bytes](std::string_view piece) { return !bytes.append(piece).empty(); };
  ComposeLines(listing, many, false, RowFormat::json, takeAll, ui);
  EXPECT_LT(std::ranges::count(bytes, '{'), 10000);
  EXPECT_TRUE(bytes.ends_with("}\n]\n"));
}

// Each occurrence has one row, also if several keywords match it.
TEST(OccurrenceRows, AreThoseThatAnyKeywordFinds) {
  SilentProgress nobody;
  ConcordanceSettings settings;
  settings.contextSize = 1;
  const Listing all = ScanText(u"we dog sea cat so bird Sea dog to us", settings, nobody);
  settings.mode = Mode::search;
  // Keywords of the file, extra keywords, and the places that they find.
  const std::tuple<SortedWords, const char*, std::string> rows[] = {
      {{}, "sea+b* s*+bird", "24 "},
      {{}, "sea+cat d*+to sea+x", "28 8 "},
      {{}, "s?a sea+x", "24 8 "},
      {{u"cat"}, "cat+x s*+bird", "12 24 "}};
  for (const auto& [ofFile, extra, expected] : rows) {
    const KeywordLists lists = {ofFile, *ExtraKeywordsOf(extra, settings)};
    std::istringstream table(Table(ListingOf(all.words->words, settings, lists), RowFormat::tsv));
    std::string places;
    for (std::string row; std::getline(table, row);)
      places += row.substr(row.rfind('\t') + 1) + " ";
    EXPECT_EQ(places, "position " + expected) << extra;
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

TEST(OccurrenceRows, EndWhereTheUserWants) {
  // More occurrences than a listing allows.
  const auto text = DecodeAnsi(Repeated("the sea ", 32768));
  for (const bool wantsMore : {false, true}) {
    ScriptedConversation ui;
    const Listing listing = ScanText(text, {}, ui);
    ui.stopAtYield = ui.yields + 1;
    std::vector<std::string> pieces;
    const auto take = [&](std::string_view piece) {
      EXPECT_LT(pieces.emplace_back(piece).size(), 300000U);
      return wantsMore;
    };
    ComposeRows(listing, {.format = RowFormat::json}, take, ui);
    EXPECT_EQ(pieces.size() == 1, !wantsMore);
    EXPECT_EQ(pieces.back().ends_with("\"position\":262141}\n]\n"), wantsMore)
        << "the last \"sea\"";
  }
}

// A table that is cut short is still one that other programs can read.
TEST(OccurrenceRows, InAnOrderEndAtAStop) {
  SilentProgress nobody;
  const Listing listing = ScanText(DecodeAnsi(Repeated("the sea ", 9000)), {}, nobody);
  const auto rows = [&listing](ScriptedConversation& ui) {
    std::string bytes;
    ComposeRows(
        listing, {.format = RowFormat::json, .order = {.key = LineKey::right}},
        [&bytes](std::string_view piece) {
          bytes += piece;
          return true;
        },
        ui);
    return bytes;
  };
  ScriptedConversation patient;
  const std::string all = rows(patient);
  ScriptedConversation user;
  user.stopAtYield = patient.yields;
  const std::string some = rows(user);
  EXPECT_GT(some.size(), all.size() / 4);
  EXPECT_LT(some.size(), all.size());
  EXPECT_TRUE(some.ends_with("}\n]\n"));
}

}  // namespace
}  // namespace quorvel
