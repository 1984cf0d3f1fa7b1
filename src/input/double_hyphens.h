// Dashes that are typed as two hyphens.
#pragma once

#include <string>

namespace quorvel {

// Makes blanks of double hyphens in a text of Windows-1252 bytes, except in the first two and in
// the comment marks "<!--" and "-->". The length stays, so places stay valid.
void BlankDoubleHyphens(std::string& text);

}  // namespace quorvel
