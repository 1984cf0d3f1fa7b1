// Matching of words against patterns with wildcards.
#pragma once

#include <string_view>

#include "util/alphabet.h"

namespace quorvel {

// True when `word` matches `pattern`. In `pattern`, "*" matches any number of characters, "?" any
// one character, "#" any one digit of the alphabet, "[abc]" one of the characters in the brackets,
// and "[!abc]" any character not in them. A "[" that is never closed and every other character
// match themselves. Case matters. Allocates no memory. The time is at most proportional to the
// product of both lengths.
[[nodiscard]] bool MatchesWildcard(std::u16string_view word, std::u16string_view pattern,
                                   const Alphabet& alphabet);

// True when `pattern` contains a wildcard.
[[nodiscard]] bool HoldsWildcard(std::u16string_view pattern);

}  // namespace quorvel
