// Short English texts for durations, file sizes, large counts and dates.
//
// They always use "." and ",", so that a label reads the same with every locale. A negative number
// keeps its minus sign. Numbers in files are not formatted here, except dates.
#pragma once

#include <cstdint>
#include <ctime>
#include <string>

namespace quorvel {

// The duration of `totalSeconds` seconds: "1h 2m 5s", or "1 hour,  2 minutes and 5 seconds" in the
// long form. With `roundToMinute`, a duration of 30 seconds or more is shown without seconds, and
// with one more minute when it is shorter than 59 minutes.
[[nodiscard]] std::string ElapsedText(int32_t totalSeconds, bool longForm, bool roundToMinute);

// The duration of `minutes` minutes. The long form is "1 day, 2 hours and 5 minutes", without units
// that are zero; the short form is that of ShortDurationText.
[[nodiscard]] std::string DurationText(int32_t minutes, bool longForm);

// The duration of `minutes` minutes: "1d 2h 5m". The hours are shown even when they are 0.
[[nodiscard]] std::string ShortDurationText(int32_t minutes);

// The file size of `bytes` bytes: "1023 bytes", "1.50 Kb" or "1,024.00 Mb" (units of 1024, rounded
// half up).
[[nodiscard]] std::string SizeText(int64_t bytes);

// `number` in decimal with a comma before each group of three digits: "1,234,567".
[[nodiscard]] std::string GroupedNumber(int64_t number);

// A local date and time as "2024-05-17 14:03".
[[nodiscard]] std::string DateAndTimeText(std::time_t time);

}  // namespace quorvel
