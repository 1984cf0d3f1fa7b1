// The messages for faults.
#pragma once

#include <cstdint>
#include <string>

#include "run/conversation.h"
#include "util/alphabet.h"
#include "util/fault.h"

namespace quorvel {

// The message for lack of memory, without its end: " for", the file, and ".".
inline constexpr const char* NOT_ENOUGH_MEMORY = "There is not enough memory";

// Returns the message box for a fault of an input, a document, a temporary folder or typed words.
// It has no text for `stopped`, because the user knows about it. For `wouldReplace` and
// `notWritten` it has only the reason; the caller knows which file was to be written.
[[nodiscard]] Message MessageOf(const Fault& fault);

// Returns the note about characters of an input that are missing from its text. `count` is at least
// 1.
[[nodiscard]] std::string LostCharactersText(std::int64_t count, Reading reading);

}  // namespace quorvel
