// Conversion of a text to another kind of characters, each of which becomes one, in blocks that the
// compiler vectorizes.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace quorvel {

// Appends the converted `text` to `to`. `convert(from, count, to)` must write `count` characters.
// The count is a constant, except for the last characters of the text.
template <typename From, typename To, typename Convert>
void AppendInBlocks(std::basic_string<To>& to, std::basic_string_view<From> text,
                    const Convert& convert) {
  constexpr std::size_t BLOCK = 64;
  // Growing the text before it is written would fill it with zeros for nothing.
  std::array<To, 16 * BLOCK> buffer{};
  while (text.size() >= BLOCK) {
    const std::size_t length = std::min(buffer.size(), text.size() / BLOCK * BLOCK);
    for (std::size_t i = 0; i < length; i += BLOCK) convert(&text[i], BLOCK, &buffer[i]);
    to.append(buffer.data(), length);
    text.remove_prefix(length);
  }
  convert(text.data(), text.size(), buffer.data());
  to.append(buffer.data(), text.size());
}

}  // namespace quorvel
