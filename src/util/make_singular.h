// The plural rule: which words lose their final "s" before they are recorded.
//
// The rule applies to every word of a text and to every keyword, so that both have the same form.
// Compatibility: it is crude ("its" becomes "it", "news" becomes "new") and must stay so, because
// users' word lists, index files and listings depend on it.
#pragma once

#include <string_view>

#include "util/alphabet.h"

namespace quorvel {

// Returns `word` without its plural "s", or all of `word`, as a view into the argument.
[[nodiscard]] std::u16string_view MakeSingular(std::u16string_view word, const Alphabet& alphabet);

}  // namespace quorvel
