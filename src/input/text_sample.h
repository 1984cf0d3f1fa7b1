// The beginning of a document's text, to see what it is like before a run.
#pragma once

#include <cstddef>
#include <string>

#include "files/read_file.h"

namespace quorvel {

// The first `length` bytes of the text of an input, in Windows-1252: of a web page without its head
// and tags, of a DOCX document from its body. UTF-8 is repaired wherever it looks like it. Empty
// where there is no text in it.
[[nodiscard]] std::string TextSample(const InputBytes& input, std::size_t length);

}  // namespace quorvel
