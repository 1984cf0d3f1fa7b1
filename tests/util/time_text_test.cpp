#include "util/time_text.h"

#include <gtest/gtest.h>

namespace quorvel {

TEST(TimeText, Elapsed) {
  const std::tuple<int32_t, const char*, const char*, const char*> rows[] = {
      {30, "30s", "30 seconds", "1 minute"},
      {60, "1m", "1 minute", "2 minutes"},  // the whole duration counts
      {3500, "58m 20s", "58 minutes and 20 seconds", "59 minutes"},
      {3599, "59m 59s", "59 minutes and 59 seconds", "59 minutes"},  // never rounded up to an hour
      {36059, "10h 0m 59s", "10 hours and 59 seconds", "10 hours"},
      {180121, "2d 2h 2m 1s", "2 days, 2 hours,  2 minutes and 1 second",
       "2 days, 2 hours and 2 minutes"},
      {-5, "-5s", "-5 seconds", "-5 seconds"}};
  for (const auto& [totalSeconds, shortText, longText, rounded] : rows) {
    EXPECT_EQ(ElapsedText(totalSeconds, false, false), shortText);
    EXPECT_EQ(ElapsedText(totalSeconds, true, false), longText);
    EXPECT_EQ(ElapsedText(totalSeconds, true, true), rounded) << totalSeconds;
  }
}

TEST(TimeText, SizesCountsDurationsAndDates) {
  const std::pair<std::string, std::string> rows[] = {
      {SizeText(0) + SizeText(1023), "0 bytes1023 bytes"},
      {SizeText(1024) + SizeText(1029) + SizeText(1030), "1.00 Kb1.00 Kb1.01 Kb"},
      {SizeText(1152), "1.13 Kb"},  // exactly half a hundredth
      {SizeText(1048575) + SizeText(1048576), "1,024.00 Kb1.00 Mb"},
      {SizeText(std::numeric_limits<int64_t>::max()), "8,796,093,022,208.00 Mb"},
      {GroupedNumber(999) + GroupedNumber(1234567), "9991,234,567"},
      {GroupedNumber(-123) + GroupedNumber(-1234), "-123-1,234"},
      {DurationText(1565, true), "1 day, 2 hours and 5 minutes"},
      {DurationText(1439, false) + ShortDurationText(1440), "23h 59m1d 0h 0m"}};
  for (const auto& [found, expected] : rows) EXPECT_EQ(found, expected);
  std::tm time = {};  // the number of fields depends on the system
  std::tie(time.tm_year, time.tm_mon, time.tm_mday) = std::tuple(124, 4, 7);
  std::tie(time.tm_hour, time.tm_min, time.tm_sec) = std::tuple(15, 4, 59);
  time.tm_isdst = -1;
  EXPECT_EQ(DateAndTimeText(std::mktime(&time)), "2024-05-07 15:04");
}

}  // namespace quorvel
