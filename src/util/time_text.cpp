#include "util/time_text.h"

#include <array>
#include <string_view>

// Compatibility: users know the texts of the labels, so two oddities stay. First, rounding to the
// minute looks at the whole duration and not at the remaining seconds, so 60 seconds become two
// minutes, and from the 59th minute on it adds nothing. Second, ElapsedText puts two blanks after
// the comma that it inserts, and DurationText puts one.

namespace quorvel {
namespace {

constexpr int32_t MINUTES_PER_HOUR = 60;
constexpr int32_t MINUTES_PER_DAY = 24 * MINUTES_PER_HOUR;
constexpr int64_t KILOBYTE = 1024;
constexpr int64_t MEGABYTE = 1024 * KILOBYTE;
constexpr std::string_view AND = " and";

// Returns "1 day", "2 days".
std::string Counted(int32_t count, std::string_view unit) {
  std::string text = std::to_string(count).append(" ").append(unit);
  if (count != 1) text += 's';
  return text;
}

// Replaces every " and" except the last by `separator`.
std::string KeepLastAnd(std::string text, std::string_view separator) {
  size_t found = text.find(AND);
  while (found != text.rfind(AND)) {
    text.replace(found, AND.size(), separator);
    found = text.find(AND);
  }
  return text;
}

std::string LongDurationText(int32_t minutes) {
  std::string text;
  const auto append = [&text](int32_t count, std::string_view unit) {
    if (count <= 0) return;
    if (!text.empty()) text += " and ";
    text += Counted(count, unit);
  };
  append(minutes / MINUTES_PER_DAY, "day");
  append(minutes % MINUTES_PER_DAY / MINUTES_PER_HOUR, "hour");
  append(minutes % MINUTES_PER_HOUR, "minute");
  return text.empty() ? "0 minutes" : KeepLastAnd(text, ",");
}

// Formats `bytes` (not negative) in units of `unit` bytes, with two decimals. Integer arithmetic
// keeps every size exact.
std::string TwoDecimals(int64_t bytes, int64_t unit) {
  const int64_t rounded = (bytes % unit * 100 + unit / 2) / unit;
  const std::string digits = std::to_string(100 + rounded);
  return GroupedNumber(bytes / unit + rounded / 100) + '.' + digits.substr(1);
}

}  // namespace

std::string ElapsedText(int32_t totalSeconds, bool longForm, bool roundToMinute) {
  int32_t secs = totalSeconds % 60;
  int32_t mins = totalSeconds / 60;
  if (roundToMinute && totalSeconds >= 30) {
    if (mins < 59) ++mins;
    secs = 0;
  }
  std::string seconds = longForm ? Counted(secs, "second") : std::to_string(secs) + 's';
  if (mins == 0) return seconds;

  std::string text = DurationText(mins, longForm);
  if (secs > 0) text += (longForm ? " and " : " ") + seconds;
  text = KeepLastAnd(text, ", ");
  if (text.starts_with("0h ")) text.erase(0, 3);
  return text;
}

std::string DurationText(int32_t minutes, bool longForm) {
  return longForm ? LongDurationText(minutes) : ShortDurationText(minutes);
}

std::string ShortDurationText(int32_t minutes) {
  std::string text;
  if (minutes >= MINUTES_PER_DAY) {
    text = std::to_string(minutes / MINUTES_PER_DAY) + "d ";
    minutes %= MINUTES_PER_DAY;
  }
  text += std::to_string(minutes / MINUTES_PER_HOUR) + "h ";
  return text + std::to_string(minutes % MINUTES_PER_HOUR) + 'm';
}

std::string SizeText(int64_t bytes) {
  if (bytes < KILOBYTE) return std::to_string(bytes) + " bytes";
  if (bytes < MEGABYTE) return TwoDecimals(bytes, KILOBYTE) + " Kb";
  return TwoDecimals(bytes, MEGABYTE) + " Mb";
}

std::string GroupedNumber(int64_t number) {
  std::string text = std::to_string(number);
  const size_t firstDigit = number < 0 ? 1 : 0;
  for (size_t place = text.size(); place > firstDigit + 3;) {
    place -= 3;
    text.insert(place, 1, ',');
  }
  return text;
}

std::string DateAndTimeText(std::time_t time) {
  std::tm local = {};
#ifdef _WIN32
  localtime_s(&local, &time);
#else
  localtime_r(&time, &local);
#endif
  std::array<char, 32> text{};
  const std::size_t length = std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M", &local);
  return {text.data(), length};
}

}  // namespace quorvel
