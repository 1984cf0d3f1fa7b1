// The beginning of a document's text, to see what it is like before a run.
#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "util/user_interface.h"

namespace quorvel {

// The first `length` bytes of the text of the document at `path`, in Windows-1252: of a
// web page without its head and tags, of a DOCX document from its body. UTF-8 is
// repaired wherever it looks like it. Asks nothing, and says only what could not be
// cleared away; empty where there is no such document or no text in it. Nothing when
// reading failed.
[[nodiscard]] std::optional<std::string> TextSample(const std::string& path, std::size_t length,
                                                    UserInterface& ui);

}  // namespace quorvel
