#include "input/compact_spaces.h"

#include <algorithm>
#include <array>
#include <cstdint>

// Where words end cannot be foretold, so deciding byte by byte is slow. The text is
// taken in blocks that the compiler handles in a few wide instructions: in most of
// them no two blanks meet, and such a block only moves.

namespace quorvel {
namespace {

constexpr std::uint8_t BLANK = ' ';

using Block = std::array<std::uint8_t, 32>;

// Whether two blanks stand side by side in the first `length` bytes of a block, or
// one at its front behind the byte `before`.
bool BlanksMeet(const Block& block, std::size_t length, std::uint8_t before) {
  bool meet = before == BLANK && block[0] == BLANK;
  for (std::size_t k = 1; k < length; ++k) meet |= block[k - 1] == BLANK && block[k] == BLANK;
  return meet;
}

}  // namespace

void CompactSpaces(std::string& text) {
  Block block{};
  std::uint8_t before = 0;
  std::size_t out = 0;
  for (std::size_t i = 0; i < text.size(); i += block.size()) {
    const std::size_t length = std::min(block.size(), text.size() - i);
    for (std::size_t k = 0; k < length; ++k) {
      block[k] = std::max(static_cast<std::uint8_t>(text[i + k]), BLANK);
    }
    if (!BlanksMeet(block, length, before)) {
      std::copy_n(block.begin(), length, text.begin() + static_cast<std::ptrdiff_t>(out));
      out += length;
    } else {
      for (std::size_t k = 0; k < length; ++k) {
        const bool repeated = block[k] == BLANK && (k == 0 ? before : block[k - 1]) == BLANK;
        if (!repeated) text[out++] = static_cast<char>(block[k]);
      }
    }
    before = block[length - 1];
  }
  text.resize(out);
}

}  // namespace quorvel
