// What the user reads of a fault.
#pragma once

#include <cstdint>
#include <string>

#include "run/conversation.h"
#include "util/alphabet.h"
#include "util/fault.h"

namespace quorvel {

// What is said where the memory does not suffice; " for", the file, and "." follow.
inline constexpr const char* NOT_ENOUGH_MEMORY = "There is not enough memory";

// The message box about a fault of an input, a document, a temporary folder or of words that were
// typed. Not for `stopped`, of which the user knows, nor for `wouldReplace` and `notWritten`, of
// which whoever wanted the file says in which one: of these it holds the bare reason.
[[nodiscard]] Message MessageOf(const Fault& fault);

// What is said of characters of an input that its text lacks, at least one.
[[nodiscard]] std::string LostCharactersText(std::int64_t count, Reading reading);

}  // namespace quorvel
