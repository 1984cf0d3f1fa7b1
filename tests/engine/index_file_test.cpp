#include "engine/index_file.h"

#include <gtest/gtest.h>

#include "support/latin.h"
#include "support/scanned_text.h"
#include "util/time_text.h"

namespace quorvel {

TEST(IndexFile, HoldsPlacesOfUpToTenDigitsAndIsReadWholeOrNotAtAll) {
  for (std::int32_t width = 1, most = 9; width <= 10; ++width) {
    WordTable table = MadeTable({{u"Été", {most / 3, most / 2, most}}, {u"zoo", {most - 1}}});
    table.positionWidth = width;
    const auto bytesOf = [](const WordTable& words) {
      return IndexFileBytes(
          {{DocumentOf(u""), std::make_shared<const WordTable>(words)}, {}, {}, Entries({1, 0})},
          "digest", 1715094299);
    };
    const std::string bytes = bytesOf(table);
    EXPECT_TRUE(bytes.starts_with("digest\r\n" + DateAndTimeText(1715094299) + "\r\n 2 \r\n " +
                                  std::to_string(width) + " \r\n 2 \r\n\xC9t\xE9*2*3*0*"))
        << bytes;
    EXPECT_TRUE(bytes.ends_with("\r\nzoo*0*1*1*" + std::to_string(most - 1) + "\r\n")) << bytes;
    const auto read = TableOfIndexFile(bytes, latin);
    ASSERT_TRUE(read) << bytes;
    EXPECT_EQ(bytesOf(*read), bytes);
    EXPECT_EQ(read->entries[0].positions, table.entries[0].positions);
    for (std::size_t cut = 1; cut <= bytes.size(); ++cut) {
      EXPECT_EQ(TableOfIndexFile(bytes.substr(0, bytes.size() - cut), latin).has_value(), cut == 2)
          << cut;
    }
    for (int digit = 1; digit <= width; ++digit) {
      for (const char other : {'\0', '/', ':', '?', '@', ' ', '-', '\xB5', '\xFF', 'a'}) {
        std::string spoilt = bytes;
        spoilt[bytes.size() - 2 - static_cast<std::size_t>(digit)] = other;
        EXPECT_FALSE(TableOfIndexFile(spoilt, latin)) << spoilt;
      }
    }
    most = width < 9 ? most * 10 + 9 : std::numeric_limits<std::int32_t>::max();
  }
  EXPECT_EQ(LongestIndexFile(8), 128U + 3U * 55U);
  EXPECT_EQ(HeadOfIndexFile("digest\r\ndate\r\n 2").date, "date");
}

// "|" stands for a line end. Anything after the announced entries is ignored.
TEST(IndexFile, IsRefusedForOneBadNumberOrWord) {
  const std::string word30(30, 'w');
  const std::pair<int, std::vector<std::string>> rows[] = {
      {0, {"0|2|0|"}},
      {1,
       {" 1 | 2 | 1 |the*0*3*0*043259", "1|2|1|the*1*3*1*043259|", "1|2|0|the*0*3*0*043259|none",
        "1|2|1|the*0*3*0*043259|zoo*0*1*0*44", "1|10|1|the*0*1*0*0000000007",
        "1|2|1|" + word30 + "*0*1*0*04"}},
      {2, {"2|2|2|The*2*1*1*04|the*0*1*0*07", "2|2|1|the*0*1*0*07|zoo*2*1*2*44"}},
      {-1,
       {"2|2|2|the*0*1*0*07|the*0*1*0*08", "2|2|2|the*0*1*0*07|The*0*1*0*08",
        "2|2|2|zoo*0*1*0*07|the*0*1*0*08", "2|2|2|the*0*1*0*07"}},
      // Numbers in the head.
      {-1,
       {"1000000|2|1|the*0*1*0*07", "2147483647|2|1|the*0*1*0*07", "99999999999|2|1|the*0*1*0*07",
        "-1|2|0|the*0*1*0*07", "|2|1|the*0*1*0*07", "1x|2|1|the*0*1*0*07", "1|0|1|the*0*1*0*",
        "1|-2|1|the*0*1*0*07", "1|11|1|the*0*1*0*00000000007", "1|2|-1|the*0*1*0*07",
        "1|2|2|the*0*1*0*07"}},
      // Numbers in an entry.
      {-1,
       {"1|2|1|the*2*1*0*07", "1|2|1|the*0*1*2*07", "1|2|1|the*-1*1*0*07", "1|2|1|the*0*1*-1*07",
        "1|2|1|the**1*0*07", "1|2|1|the*0*1*07", "1|2|1|the*0*0*0*", "1|2|1|the*0*1*0*070",
        "1|2|1|the*0*2*0*07", "1|2|1|the*0*1*0*0708"}},
      // The places and the word of an entry.
      {-1,
       {"1|2|1|the*0*3*0*043232", "1|2|1|the*0*3*0*325932", "1|2|1|the*0*3*0*003259",
        "1|10|1|the*0*1*0*2147483648", "1|2|1|*0*1*0*07", "1|2|1|w" + word30 + "*0*1*0*07"}}};
  for (const auto& [words, files] : rows) {
    for (std::string file : files) {
      for (std::size_t i = 0; (i = file.find('|')) != std::string::npos;)
        file.replace(i, 1, "\r\n");
      const auto table = TableOfIndexFile("\r\n\r\n" + file, latin);
      EXPECT_EQ(table ? table->WordCount() : -1, words) << file;
      const bool isStopped = !TableOfIndexFile("\r\n\r\n" + file, latin, [] { return false; });
      EXPECT_EQ(isStopped, words != 0) << file;
    }
  }
}

}  // namespace quorvel
