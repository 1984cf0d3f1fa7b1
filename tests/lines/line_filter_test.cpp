#include "lines/line_filter.h"

#include <gtest/gtest.h>

#include "support/made_texts.h"
#include "support/scanned_text.h"
#include "support/scripted_conversation.h"
#include "util/ansi.h"

namespace quorvel {
namespace {

// The lines of "sea", with two words on each side.
struct Seas {
  explicit Seas(std::u16string_view text, bool isWide = false) {
    Document document = *DocumentOf(text);
    if (isWide) document.codePage = nullptr;
    SilentProgress nobody;
    source.words = ScanWords(std::make_shared<const Document>(document), nullptr, nobody);
    for (const EntryIndex entry : EntriesOf(*source.words.table)) {
      if (source.words.table->At(entry).word == u"sea") lines = *LinesOf(source, {{entry}}, nobody);
    }
  }

  LineSource source = {{}, nullptr, {2, false}};
  Lines lines;
};

TEST(LineFilter, KeepsLinesWithAllWordsWanted) {
  const std::pair<std::u16string_view, std::vector<int>> rows[] = {
      {u"", {0, 1, 2}},   {u" ", {0, 1, 2}},   {u"UBER", {}},        {u"ueber", {1}},
      {u"Über", {1}},     {u"to", {0, 2}},     {u"to us", {2}},      {u"us, to", {}},
      {u"s*", {0, 1, 2}}, {u"s??", {0, 1, 2}}, {u"[!s]??? #*", {0}}, {u"which", {1}},
      {u"whic", {}},      {u"all", {0}}};
  for (const bool isWide : {false, true}) {
    // After a beginning that is long enough, because contexts at the beginning are cut differently.
    const Seas seas(
        u"it is as it is and it is as it is and it is / to 20th sea this, all all of "
        u"über sea: (which) it all so to sea us of",
        isWide);
    ASSERT_EQ(seas.lines.size(), 3U);
    for (const auto& [wanted, kept] : rows) {
      SilentProgress nobody;
      const Lines lines = *LinesWith(wanted, seas.lines, seas.source, nobody);
      std::vector<int> numbers;
      for (const Line& line : lines) {
        numbers.push_back(
            static_cast<int>(std::ranges::find(seas.lines, line) - seas.lines.begin()));
      }
      EXPECT_EQ(numbers, kept) << testing::PrintToString(wanted);
    }
  }
}

TEST(LineFilter, TakesEqualLinesOnce) {
  const Seas seas(
      u"... so it is at sea to us / so it is at sea to us / so it is at seas to us / so it is "
      u"at sea to us / so it is at, sea to us / so it is at sea to us.");
  ASSERT_EQ(seas.lines.size(), 5U);
  SilentProgress nobody;
  std::string counts;
  const std::vector<LineGroup> groups = *EqualLinesOnce(seas.lines, seas.source, nobody);
  for (const LineGroup& group : groups) {
    const auto number = std::ranges::find(seas.lines, group.first) - seas.lines.begin();
    counts += std::to_string(number) + "x" + std::to_string(group.count) + " ";
  }
  EXPECT_EQ(counts, "0x3 3x1 4x1 ");
}

TEST(LineFilter, CanBeStopped) {
  Seas seas(DecodeAnsi(Repeated("at sea ", 5000)));
  ScriptedConversation filtering;
  filtering.stopAtYield = 1;
  EXPECT_FALSE(LinesWith(u"at", seas.lines, seas.source, filtering));
  ScriptedConversation grouping;
  grouping.stopAtYield = 1;
  EXPECT_FALSE(EqualLinesOnce(seas.lines, seas.source, grouping));
  ScriptedConversation searching;
  searching.stopAtYield = 1;
  seas.source.keywords = std::make_shared<const KeywordLists>(KeywordLists{{u"sea"}, {}});
  EXPECT_FALSE(LinesOf(seas.source, Entries({0}), searching));
}

}  // namespace
}  // namespace quorvel
