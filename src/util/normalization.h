// Unicode normalization to the composed form (NFC): "e" followed by a combining acute accent
// becomes "é".
//
// With it a word is found however its letters were typed. Nearly all texts are composed already and
// are only scanned.
#pragma once

#include <string>

namespace quorvel {

// Returns the composed form of `text`, which must be valid UTF-8. Takes O(n log n) time for n
// bytes, however many marks follow each other.
[[nodiscard]] std::string Normalized(std::string text);

}  // namespace quorvel
