// English number words: a count written out for a label, and the words themselves, which are
// concealed from a listing like stop words. Not for ordinals ("third"), and not for reading
// numbers back.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quorvel {

// `number`, which is not negative, in lower-case words, without "and": "two thousand three hundred
// forty". 0 is "zero".
[[nodiscard]] std::string NumberInWords(std::int64_t number);

// A count for a label, with a first capital: `one` as it is for 1, else the number in words and
// `many`: "Forty-two stop words".
[[nodiscard]] std::string CountInWords(std::size_t count, std::string_view one,
                                       std::string_view many);

// The words that cardinals are made of: "zero" to "ninety-nine", "hundred", "thousand", "million"
// and "billion", each in lower case and with a first capital ("Twenty-one"), ascending by code
// unit.
[[nodiscard]] std::vector<std::u16string> CardinalWords();

}  // namespace quorvel
