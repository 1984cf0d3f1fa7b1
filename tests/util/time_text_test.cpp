#include "util/time_text.h"

#include <gtest/gtest.h>

#include <limits>
#include <tuple>
#include <utility>

namespace quorvel {
namespace {

TEST(TimeText, Elapsed) {
  const std::tuple<int32_t, const char*, const char*, const char*> rows[] = {
      {1, "1s", "1 second", "1 second"},
      {29, "29s", "29 seconds", "29 seconds"},
      {30, "30s", "30 seconds", "1 minute"},
      // The whole duration counts.
      {60, "1m", "1 minute", "2 minutes"},
      // Never to the full hour.
      {3599, "59m 59s", "59 minutes and 59 seconds", "59 minutes"},
      // Two blanks after the comma.
      {3661, "1h 1m 1s", "1 hour,  1 minute and 1 second", "1 hour and 1 minute"},
      {36059, "10h 0m 59s", "10 hours and 59 seconds", "10 hours"},
      {86460, "1d 0h 1m", "1 day and 1 minute", "1 day and 1 minute"},
      {-5, "-5s", "-5 seconds", "-5 seconds"}};
  for (const auto& [totalSeconds, shortText, longText, rounded] : rows) {
    EXPECT_EQ(ElapsedText(totalSeconds, false, false), shortText);
    EXPECT_EQ(ElapsedText(totalSeconds, true, false), longText);
    EXPECT_EQ(ElapsedText(totalSeconds, true, true), rounded) << totalSeconds;
  }
}

TEST(TimeText, Size) {
  const std::pair<int64_t, const char*> rows[] = {
      {1023, "1023 bytes"},
      {1029, "1.00 Kb"},
      {1152, "1.13 Kb"},  // exactly half a hundredth
      {1048575, "1,024.00 Kb"},
      {1048576, "1.00 Mb"},
      {std::numeric_limits<int64_t>::max(), "8,796,093,022,208.00 Mb"}};
  for (const auto& [bytes, expected] : rows) EXPECT_EQ(SizeText(bytes), expected);
}

}  // namespace
}  // namespace quorvel
