// Blanks and control characters reduced to single blanks.
#pragma once

#include <string>

namespace quorvel {

// Makes one blank of every run of bytes from 0 to 32, a single tab or line feed
// too. The no-break space is left alone.
void CompactSpaces(std::string& text);

}  // namespace quorvel
