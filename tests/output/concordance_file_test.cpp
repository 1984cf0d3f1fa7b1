#include "output/concordance_file.h"

#include <gtest/gtest.h>

#include "support/latin.h"
#include "util/time_text.h"

namespace quorvel {
namespace {

TEST(ConcordanceFile, BeginsWithWhatItWasMadeOf) {
  constexpr std::time_t TIME = 1234567890;
  const std::string made = " file created using Quorvel (V.21.36): " + DateAndTimeText(TIME);
  EXPECT_EQ(FileHeader(Mode::create, "/a\n\u00e9\x7f\u4e00.txt", "ABC", TIME, LATIN),
            "Input file: /a?\xE9??.txt\r\nMD5 message digest of input file: ABC\r\nConcordance" +
                made + "\r\n\r\n");
  EXPECT_EQ(FileHeader(Mode::search, "b", "ABC", TIME, LATIN),
            "Input file: b\r\nSearch results" + made + "\r\n\r\n");
}

}  // namespace
}  // namespace quorvel
