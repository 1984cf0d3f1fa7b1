// The beginning of a document's text, to see what it is like before a run.
#pragma once

#include <cstddef>
#include <string>

namespace quorvel {

// The first `length` bytes of the text of the document at `path`, as characters: of a
// web page without its head and tags, of a DOCX document from its body. UTF-8 is
// repaired wherever it looks like it. Asks and says nothing; empty for a document
// that cannot be read.
[[nodiscard]] std::u16string TextSample(const std::string& path, std::size_t length);

}  // namespace quorvel
