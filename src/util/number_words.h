// English number words, in two uses: a count written out for a label, and the list of number words
// that are left out of a listing like stop words. Not for ordinals ("third"), and not for parsing
// numbers.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quorvel {

// Returns `number`, which must not be negative, in lower-case words without "and": "two thousand
// three hundred forty". 0 gives "zero".
[[nodiscard]] std::string NumberInWords(std::int64_t number);

// Returns the text of a count for a label. A count of 1 gives `one`; any other count gives the
// number in words, with a capital, followed by `many`: "Forty-two stop words".
[[nodiscard]] std::string CountInWords(std::size_t count, std::string_view one,
                                       std::string_view many);

// The words of cardinal numbers: "zero" to "ninety-nine", "hundred", "thousand", "million" and
// "billion", each in lower case and with a capital ("Twenty-one"), sorted by code unit.
[[nodiscard]] std::vector<std::u16string> CardinalWords();

}  // namespace quorvel
