// Character references of web pages: every name that HTML knows, and numbers.
#pragma once

#include <string>
#include <string_view>

namespace quorvel {

// The text with its references replaced by the UTF-8 of what they stand for. One is "&", a name or
// a number and ";"; what HTML does not know stays as it is written. A blank of any kind among the
// control characters, and the no-break space, become a plain blank, so that they separate words. A
// number of no character becomes U+FFFD; one from 80 to 9F hex is a byte of Windows-1252.
[[nodiscard]] std::string DecodeReferences(std::string_view text);

}  // namespace quorvel
