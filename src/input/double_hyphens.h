// Blanks out double hyphens, which are typed for dashes.
#pragma once

#include <cstddef>
#include <string>

namespace quorvel {

// Replaces each double hyphen by two blanks, except in the first two characters of the text and in
// the comment marks "<!--" and "-->". `third` is the 0-based index of the third character in bytes,
// at least 2. The length of the text does not change, so positions stay valid.
void BlankDoubleHyphens(std::string& text, std::size_t third = 2);

}  // namespace quorvel
