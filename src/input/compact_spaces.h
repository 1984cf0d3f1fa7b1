// Replaces runs of blanks and control characters by single blanks.
#pragma once

#include <string>

namespace quorvel {

// Replaces every run of bytes from 0 to 32 by one blank, including a single tab or line feed.
// No-break spaces are unchanged.
void CompactSpaces(std::string& text);

}  // namespace quorvel
