// Dashes that are typed as two hyphens.
#pragma once

#include <cstddef>
#include <string>

namespace quorvel {

// Makes blanks of double hyphens in a text, except in its first two characters and in the comment
// marks "<!--" and "-->". `third` is the 0-based place of the third character in bytes, at least 2.
// The length stays, so places stay valid.
void BlankDoubleHyphens(std::string& text, std::size_t third = 2);

}  // namespace quorvel
