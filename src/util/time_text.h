// The short English texts for durations, file sizes and large counts that the labels show.
//
// Always with "." and ",": a label reads the same on every machine. Not for numbers that a file
// carries. A negative number keeps its minus sign. Also the one form of a date that files carry.
#pragma once

#include <cstdint>
#include <ctime>
#include <string>

namespace quorvel {

// The duration of `totalSeconds` seconds: "1h 2m 5s", in the long form
// "1 hour,  2 minutes and 5 seconds". With `roundToMinute` a duration of 30 seconds or more loses
// its seconds, and gains a minute where it is shorter than 59 of them.
[[nodiscard]] std::string ElapsedText(int32_t totalSeconds, bool longForm, bool roundToMinute);

// The duration of `minutes` minutes: "1 day, 2 hours and 5 minutes" in the long form, where units
// that are zero are left out, else as ShortDurationText gives it.
[[nodiscard]] std::string DurationText(int32_t minutes, bool longForm);

// The duration of `minutes` minutes: "1d 2h 5m". The hours stand there even when they are 0.
[[nodiscard]] std::string ShortDurationText(int32_t minutes);

// The size of a file of `bytes` bytes: "1023 bytes", "1.50 Kb" or "1,024.00 Mb" (units of 1024),
// the decimals rounded half up.
[[nodiscard]] std::string SizeText(int64_t bytes);

// `number` in decimal with a comma before each group of three digits: "1,234,567".
[[nodiscard]] std::string GroupedNumber(int64_t number);

// A local date and time as "2024-05-17 14:03".
[[nodiscard]] std::string DateAndTimeText(std::time_t time);

}  // namespace quorvel
