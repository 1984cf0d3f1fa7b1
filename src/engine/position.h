// Positions in a text, counted in characters from 1, as word tables and index files hold them.
//
// A type of its own, so that a position is not confused with a 0-based index, which is a
// std::size_t.
#pragma once

#include <cstddef>
#include <cstdint>

namespace quorvel {

enum class Position : std::int32_t {};

inline constexpr Position NO_POSITION{0};  // before the text
inline constexpr Position FIRST_POSITION{1};

// The position of the character at the 0-based `index`.
[[nodiscard]] constexpr Position PositionOf(std::size_t index) {
  return static_cast<Position>(index + 1);
}

// The 0-based index of the character at `position`, which is at least FIRST_POSITION.
[[nodiscard]] constexpr std::size_t IndexOf(Position position) {
  return static_cast<std::size_t>(position) - 1;
}

// The position so many characters further on, or further back.
[[nodiscard]] constexpr Position operator+(Position position, std::size_t characters) {
  return PositionOf(IndexOf(position) + characters);
}
[[nodiscard]] constexpr Position operator-(Position position, std::size_t characters) {
  return PositionOf(IndexOf(position) - characters);
}

}  // namespace quorvel
