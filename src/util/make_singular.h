// The plural rule: which words lose their final "s" before they are recorded.
//
// Every word of a text passes through it, and so does every keyword, so that
// both meet in the same form. It is crude on purpose ("its" becomes "it", "news"
// becomes "new") and must stay so: lists and concordances in use rest on it.
#pragma once

#include <string_view>

#include "util/alphabet.h"

namespace quorvel {

// `word` without its plural "s", or `word` itself: a view into the argument.
[[nodiscard]] std::u16string_view MakeSingular(std::u16string_view word, const Alphabet& alphabet);

}  // namespace quorvel
