#include "lines/line_text.h"

#include <gtest/gtest.h>

#include "support/made_texts.h"
#include "support/scanned_text.h"
#include "support/scripted_conversation.h"
#include "util/utf8.h"

namespace quorvel {

TEST(LineText, IsAlignedOrHasTabs) {
  // The second text contains a character of two code units.
  for (const std::u16string other : {u"x", u"\U0001F6A2"}) {
    const std::u16string text = u"it is as it is and it is as it is and it is, it is / all off " +
                                other + u" sea: it is / Ö sea, it is / so";
    const auto document =
        MakeUnicodeDocument({}, {.reading = Reading::unicode}, EncodeUtf8(text), 0);
    ScriptedConversation ui;
    const LineSource source = {ScanWords(document, nullptr, ui), nullptr, {2, false}};
    const WordTable& table = *source.words.table;
    const auto sea = std::ranges::find(table.entries, u"sea", &WordEntry::word);
    const Lines lines = *LinesOf(source, {{table.IndexOf(*sea)}}, ui);
    const LineGroup groups[] = {{lines.at(1), 1}, {lines.at(0), 12}};
    const auto composed = [&](LineForm form, bool withTimes) {
      std::string bytes;
      ComposeLineText(
          groups, source, form, withTimes,
          [&bytes](std::string_view piece) {
            bytes += piece;
            return true;
          },
          ui);
      return bytes;
    };
    const std::string letter = EncodeUtf8(other);
    EXPECT_EQ(composed(LineForm::aligned, true),
              " is Ö sea, it is (x1)\noff " + letter + " sea: it is (x12)\n");
    EXPECT_EQ(composed(LineForm::tabbed, false),
              "is Ö \tsea\t, it is\noff " + letter + " \tsea\t: it is\n");
    EXPECT_EQ(composed(LineForm::tabbed, true),
              "is Ö \tsea\t, it is\t1\noff " + letter + " \tsea\t: it is\t12\n");
  }
}

TEST(LineText, CanBeStopped) {
  ScriptedConversation ui;
  const auto document = MakeUnicodeDocument({}, {.reading = Reading::unicode}, "the sea.", 0);
  const LineSource source = {ScanWords(document, nullptr, ui), nullptr, {2, false}};
  const LineGroup group = {{EntryIndex{0}, Position{5}}, 1};
  const std::vector<LineGroup> groups(9000, group);
  ui.yields = 0;
  ui.stopAtYield = 1;
  std::size_t lines = 0;
  const auto count = [&lines](std::string_view) { return ++lines > 0; };
  ComposeLineText(groups, source, LineForm::tabbed, false, count, ui);
  EXPECT_TRUE(ui.StopRequested());
  EXPECT_LT(lines, groups.size());
}

}  // namespace quorvel
