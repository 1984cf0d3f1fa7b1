// Extracts the beginning of a document's text, read as Unicode, before a run, for language
// recognition.
#pragma once

#include <cstddef>
#include <string>

#include "files/read_file.h"

namespace quorvel {

// Returns the first `length` code units of the text of an input in Windows-1252, with "?" for other
// characters. Empty when the input has no text.
[[nodiscard]] std::string UnicodeSample(const InputBytes& input, std::size_t length);

}  // namespace quorvel
