// The composed form of a text (NFC): "e" and an acute accent after it are the one character "é".
//
// So that a word is found however its letters were typed. Nearly all texts come composed, and these
// are only looked at.
#pragma once

#include <string>

namespace quorvel {

// The composed form of `text`, which is valid UTF-8. Takes no more than its length times the
// logarithm of that, however many marks stand behind each other.
[[nodiscard]] std::string Normalized(std::string text);

}  // namespace quorvel
