// A lower bound for the cost of a concordance: work that every program must do that lists each word
// with its context.
#pragma once

#include <string>

namespace quorvel {

// Hashes each run of three or more ASCII letters of `input`, and writes the 60 bytes from its
// beginning on to `output`. Returns false when a file cannot be read or written.
[[nodiscard]] bool WriteFloor(const std::string& input, const std::string& output);

}  // namespace quorvel
