// Extracts the beginning of a document's text before a run, for language recognition.
#pragma once

#include <cstddef>
#include <string>

#include "files/read_file.h"

namespace quorvel {

// Returns the first `length` bytes of the text of an input in Windows-1252: without head and tags
// for a web page, from the body for a DOCX document. Everything that looks like UTF-8 is repaired.
// Empty when the input has no text.
[[nodiscard]] std::string TextSample(const InputBytes& input, std::size_t length);

}  // namespace quorvel
