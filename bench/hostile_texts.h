// Texts that are made to cost more than their length, each with an ordinary one beside it: of the
// same size and with a listing of about the same size.
#pragma once

#include <string>
#include <string_view>

namespace quorvel {

// A text by its name; without characters for an unknown one.
//   tokens, tokens_benign    80,000 words, which all share a slot where a table has no secret
//   markers, markers_benign  32,000 lines, in which something like a repeat marker keeps equal
//                            contexts apart
//   repairs, repairs_benign  20 MB in which each repair of UTF-8 makes work for a further one
[[nodiscard]] std::string HostileText(std::string_view name);

}  // namespace quorvel
