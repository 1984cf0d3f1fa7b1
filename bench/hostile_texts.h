// Malicious texts that try to cost more time than their length justifies. For each there is a
// benign text with the same size and a listing of about the same size.
#pragma once

#include <string>
#include <string_view>

namespace quorvel {

// Returns the text with this name, or an empty string for an unknown name.
//   tokens, tokens_benign    80,000 words, all in the same slot of a table without a secret
//   markers, markers_benign  32,000 lines; a fake repeat marker in each makes equal contexts differ
//   repairs, repairs_benign  20 MB in which each repair of UTF-8 causes another one
[[nodiscard]] std::string HostileText(std::string_view name);

}  // namespace quorvel
