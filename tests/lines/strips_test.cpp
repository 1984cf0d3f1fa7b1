#include "lines/strips.h"

#include <gtest/gtest.h>

#include "support/scanned_text.h"
#include "support/scripted_conversation.h"

namespace quorvel {
namespace {

TEST(Strips, CountInEqualColumns) {
  using Counts = std::vector<std::int32_t>;
  const std::tuple<Counts, std::size_t, int, Counts> rows[] = {
      {{}, 0, 2, {0, 0}},
      {{1}, 0, 2, {1, 0}},
      {{1, 5, 6, 10}, 10, 2, {2, 2}},
      {{1, 2, 3}, 3, 5, {1, 1, 0, 1, 0}},
      // Recorded after the end, like some words at the end of a text.
      {{11, 12}, 10, 3, {0, 0, 2}},
      {{1, 2000000000, 2147483647}, 2147483647, 3, {1, 0, 2}}};
  for (const auto& [positions, length, columns, counts] : rows) {
    EXPECT_EQ(StripOf(Positions(positions), length, columns), counts);
  }
}

std::string Picture(std::string_view title, const LineSource& source,
                    const std::vector<EntryIndex>& entries, Progress& progress) {
  std::string picture;
  DrawStrips(
      title, source, entries,
      [&picture](std::string_view piece) {
        picture += piece;
        return true;
      },
      progress);
  return picture;
}

TEST(Strips, AreDrawn) {
  ScriptedConversation ui;
  const std::u16string text = u"été to us so" + std::u16string(864, u' ') + u"sea";
  LineSource source = {ScanWords(DocumentOf(text), nullptr, ui), nullptr, {2, false}};
  const std::string picture = Picture("a<b>&c", source, Entries({1, 0}), ui);
  EXPECT_TRUE(
      picture.starts_with("<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"1210\" "
                          "height=\"78\" viewBox=\"0 0 1210 78\">\n"
                          "<title>a&lt;b>&amp;c</title>\n"));
  EXPECT_TRUE(picture.ends_with(
      ">a&lt;b>&amp;c</text>\n"
      "<text x=\"10\" y=\"45\">sea</text><text class=\"n\" x=\"310\" y=\"45\">1</text>"
      "<path class=\"s\" d=\"M320 35h880v12h-880z\"/><path class=\"m\" d=\"M1197.5 35v12\"/>\n"
      "<text x=\"10\" y=\"63\">été</text><text class=\"n\" x=\"310\" y=\"63\">1</text>"
      "<path class=\"s\" d=\"M320 53h880v12h-880z\"/><path class=\"m\" d=\"M320.5 53v12\"/>\n"
      "</svg>\n"))
      << picture;
  // In a search only the listed lines count. After a stop the picture ends with the current row.
  KeywordLists keywords;
  keywords.extraKeywords =
      ExtraKeywordList({ExtraKeywordOf(u"sea+it"), ExtraKeywordOf(u"été")}, latin);
  source.keywords = std::make_shared<const KeywordLists>(keywords);
  ui.stopAtYield = ui.yields + 1;
  const std::string stopped = Picture("", source, Entries({1, 0}), ui);
  EXPECT_TRUE(
      stopped.ends_with("y=\"45\">0</text><path class=\"s\" d=\"M320 35h880v12h-880z\"/>"
                        "<path class=\"m\" d=\"\"/>\n</svg>\n"))
      << stopped;
}

}  // namespace
}  // namespace quorvel
