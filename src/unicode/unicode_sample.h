// The beginning of a document's text, read as Unicode, to see what it is like before a run.
#pragma once

#include <cstddef>
#include <string>

#include "files/read_file.h"

namespace quorvel {

// The first `length` code units of the text of an input, in Windows-1252, "?" for what that does
// not have. Empty where there is no text in it.
[[nodiscard]] std::string UnicodeSample(const InputBytes& input, std::size_t length);

}  // namespace quorvel
