// Random seeds for the hash tables of a run.
//
// A seed decides only where a table stores a text. No result depends on it.
#pragma once

#include <array>
#include <cstdint>

namespace quorvel {

using HashSeed = std::array<std::uint64_t, 4>;

// Returns unpredictable numbers from the system. If the system has no random device, the numbers
// come from the clock and the address of an allocation.
[[nodiscard]] HashSeed RandomHashSeed();

}  // namespace quorvel
