// The secret numbers that make the hash tables of a run its own.
//
// No result depends on them: they decide only where in a table a text is kept.
#pragma once

#include <array>
#include <cstdint>

namespace quorvel {

using HashSeed = std::array<std::uint64_t, 4>;

// Numbers that nobody can foretell, from the system; where it has none to give, of the time and of
// where this program's memory lies.
[[nodiscard]] HashSeed RandomHashSeed();

}  // namespace quorvel
