#include "util/number_words.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace quorvel {
namespace {

constexpr std::array<std::string_view, 20> BELOW_TWENTY = {
    "zero",     "one",     "two",     "three",     "four",     "five",    "six",
    "seven",    "eight",   "nine",    "ten",       "eleven",   "twelve",  "thirteen",
    "fourteen", "fifteen", "sixteen", "seventeen", "eighteen", "nineteen"};
constexpr std::array<std::string_view, 8> TENS = {"twenty", "thirty",  "forty",  "fifty",
                                                  "sixty",  "seventy", "eighty", "ninety"};

struct Scale {
  std::int64_t value;
  std::string_view word;
};
constexpr std::array<Scale, 4> SCALES = {
    {{1'000'000'000, "billion"}, {1'000'000, "million"}, {1'000, "thousand"}, {100, "hundred"}}};

// `number` is 0 to 99.
std::string BelowHundred(size_t number) {
  if (number < BELOW_TWENTY.size()) return std::string(BELOW_TWENTY[number]);
  std::string text(TENS[number / 10 - 2]);
  if (number % 10 != 0) text.append("-").append(BELOW_TWENTY[number % 10]);
  return text;
}

}  // namespace

std::string NumberInWords(std::int64_t number) {
  std::string text;
  for (const Scale& scale : SCALES) {
    if (number < scale.value) continue;
    text += NumberInWords(number / scale.value).append(" ").append(scale.word);
    number %= scale.value;
    if (number == 0) return text;
    text += ' ';
  }
  return text + BelowHundred(static_cast<size_t>(number));
}

std::string CountInWords(size_t count, std::string_view one, std::string_view many) {
  if (count == 1) return std::string(one);
  std::string text = NumberInWords(static_cast<std::int64_t>(count));
  text.front() = static_cast<char>(text.front() - 'a' + 'A');
  return text.append(many);
}

std::vector<std::u16string> CardinalWords() {
  std::vector<std::u16string> words;
  const auto add = [&words](std::string_view ascii) {
    std::u16string word(ascii.begin(), ascii.end());
    words.push_back(word);
    word.front() = static_cast<char16_t>(word.front() - u'a' + u'A');
    words.push_back(word);
  };
  for (size_t number = 0; number < 100; ++number) add(BelowHundred(number));
  for (const Scale& scale : SCALES) add(scale.word);
  std::ranges::sort(words);
  return words;
}

}  // namespace quorvel
