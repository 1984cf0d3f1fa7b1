// Whether a word matches a pattern with wildcards.
#pragma once

#include <string_view>

#include "util/alphabet.h"

namespace quorvel {

// In `pattern` "*" stands for any run of characters, also none, "?" for any one
// character, "#" for any one digit of the alphabet, "[abc]" for one of the characters in the
// brackets and "[!abc]" for one that is not; a "[" that is never closed, and every
// other character, stands for itself. Case matters. Takes no memory, and time in
// proportion to both lengths multiplied at the worst.
[[nodiscard]] bool MatchesWildcard(std::u16string_view word, std::u16string_view pattern,
                                   const Alphabet& alphabet);

// Whether a pattern may match anything but itself.
[[nodiscard]] bool HoldsWildcard(std::u16string_view pattern);

}  // namespace quorvel
