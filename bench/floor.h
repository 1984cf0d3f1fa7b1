// The least that a concordance can cost: what no program that lists each word in its
// surroundings can do without.
#pragma once

#include <string>

namespace quorvel {

// Hashes each run of three or more ASCII letters of a file, and writes the 60 bytes from its
// beginning on to another one. False when a file cannot be read or written.
[[nodiscard]] bool WriteFloor(const std::string& input, const std::string& output);

}  // namespace quorvel
