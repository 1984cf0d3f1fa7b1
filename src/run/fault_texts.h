// What the user reads of a fault.
#pragma once

#include "run/conversation.h"
#include "util/fault.h"

namespace quorvel {

// The message box about a fault of an input, a document, a temporary folder or of words that were
// typed. Not for `stopped`, of which the user knows, nor for `wouldReplace` and `notWritten`, of
// which whoever wanted the file says in which one: of these it holds the bare reason.
[[nodiscard]] Message MessageOf(const Fault& fault);

}  // namespace quorvel
