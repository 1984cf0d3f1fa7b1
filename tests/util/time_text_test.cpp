#include "util/time_text.h"

#include <gtest/gtest.h>

#include <limits>
#include <tuple>
#include <utility>

namespace quorvel {
namespace {

TEST(TimeText, Elapsed) {
  const std::tuple<const char*, int32_t, const char*, const char*> rows[] = {
      {"nothing", 0, "0s", "0 seconds"},
      {"one second", 1, "1s", "1 second"},
      {"no seconds part", 60, "1m", "1 minute"},
      {"minutes lose their hours", 125, "2m 5s", "2 minutes and 5 seconds"},
      {"only hours", 36000, "10h 0m", "10 hours"},
      {"two blanks after the comma", 3661, "1h 1m 1s", "1 hour,  1 minute and 1 second"},
      {"hours of a day stay", 86460, "1d 0h 1m", "1 day and 1 minute"},
      {"all units", 183845, "2d 3h 4m 5s", "2 days, 3 hours,  4 minutes and 5 seconds"},
      {"a clock set back", -5, "-5s", "-5 seconds"}};
  for (const auto& [name, totalSeconds, shortText, longText] : rows) {
    EXPECT_EQ(ElapsedText(totalSeconds, false, false), shortText) << name;
    EXPECT_EQ(ElapsedText(totalSeconds, true, false), longText) << name;
  }
}

TEST(TimeText, ElapsedRoundedToMinute) {
  const std::tuple<const char*, int32_t, const char*> rows[] = {
      {"too short to round", 29, "29 seconds"},
      {"shortest that is rounded", 30, "1 minute"},
      {"the whole duration counts", 60, "2 minutes"},
      {"into the 59th minute", 58 * 60, "59 minutes"},
      {"never to the full hour", 3599, "59 minutes"},
      {"later minutes stay", 2 * 3600 + 59, "2 hours"},
      {"lowest number", std::numeric_limits<int32_t>::min(), "0 minutes"}};
  for (const auto& [name, totalSeconds, expected] : rows) {
    EXPECT_EQ(ElapsedText(totalSeconds, true, true), expected) << name;
  }
}

TEST(TimeText, Duration) {
  const std::tuple<int32_t, const char*, const char*> rows[] = {
      {0, "0h 0m", "0 minutes"},
      {59, "0h 59m", "59 minutes"},
      {60, "1h 0m", "1 hour"},
      {1439, "23h 59m", "23 hours and 59 minutes"},
      {1440, "1d 0h 0m", "1 day"},
      {1440 + 125, "1d 2h 5m", "1 day, 2 hours and 5 minutes"},
      {3 * 1440 + 60, "3d 1h 0m", "3 days and 1 hour"}};
  for (const auto& [minutes, shortText, longText] : rows) {
    EXPECT_EQ(DurationText(minutes, false), shortText);
    EXPECT_EQ(DurationText(minutes, true), longText);
  }
}

TEST(TimeText, Size) {
  const std::pair<int64_t, const char*> rows[] = {
      {1023, "1023 bytes"},
      {1029, "1.00 Kb"},
      {1030, "1.01 Kb"},
      {1152, "1.13 Kb"},  // exactly half a hundredth
      {1048575, "1,024.00 Kb"},
      {1048576, "1.00 Mb"},
      {1073741823, "1,024.00 Mb"},
      {std::numeric_limits<int64_t>::max(), "8,796,093,022,208.00 Mb"}};
  for (const auto& [bytes, expected] : rows) EXPECT_EQ(SizeText(bytes), expected);
}

TEST(TimeText, Grouped) {
  const std::pair<int64_t, const char*> rows[] = {
      {0, "0"},
      {999, "999"},
      {1234567, "1,234,567"},
      {-123456, "-123,456"},
      {std::numeric_limits<int64_t>::min(), "-9,223,372,036,854,775,808"}};
  for (const auto& [number, expected] : rows) EXPECT_EQ(GroupedNumber(number), expected);
}

}  // namespace
}  // namespace quorvel
