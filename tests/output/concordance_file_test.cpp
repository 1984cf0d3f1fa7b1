#include "output/concordance_file.h"

#include <gtest/gtest.h>

#include "util/time_text.h"

namespace quorvel {
namespace {

TEST(ConcordanceFile, BeginsWithWhatItWasMadeOf) {
  constexpr std::time_t TIME = 1234567890;
  const std::string made = " file created using Quorvel (V.21.36): " + DateAndTimeText(TIME);
  EXPECT_EQ(
      FileHeader(Mode::create, "/a\n\u00e9\x7f\u4e00.txt", "ABC", TIME),
      "Input file: /a?\u00e9?\u4e00.txt\r\nMD5 message digest of input file: ABC\r\nConcordance" +
          made + "\r\n\r\n");
  EXPECT_EQ(FileHeader(Mode::search, "b", "ABC", TIME),
            "Input file: b\r\nSearch results" + made + "\r\n\r\n");
}

}  // namespace
}  // namespace quorvel
