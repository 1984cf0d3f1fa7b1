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

constexpr std::size_t BLOCK = 32;
using Block = std::array<std::uint8_t, BLOCK>;

// Whether two blanks stand side by side in a block, or one at its front behind the
// byte `before`. Looks at all of it, for that is quicker than to stop at the first two.
bool BlanksMeet(const Block& block, std::uint8_t before) {
  auto meet = static_cast<unsigned>(before == BLANK && block[0] == BLANK);
  for (std::size_t k = 1; k < BLOCK; ++k) {
    meet |= static_cast<unsigned>(block[k - 1] == BLANK) & static_cast<unsigned>(block[k] == BLANK);
  }
  return meet != 0;
}

// Moves bytes to the front of the text, place by place.
class Compactor {
 public:
  explicit Compactor(std::string& text) : text_(text) {}

  void MoveBlock(std::size_t from) {
    Block block;
    for (std::size_t k = 0; k < BLOCK; ++k) {
      block[k] = std::max(static_cast<std::uint8_t>(text_[from + k]), BLANK);
    }
    if (BlanksMeet(block, before_)) {
      for (const std::uint8_t byte : block) MoveByte(byte);
    } else {
      std::copy_n(block.begin(), BLOCK, text_.begin() + static_cast<std::ptrdiff_t>(out_));
      out_ += BLOCK;
      before_ = block[BLOCK - 1];
    }
  }

  void MoveByte(std::uint8_t byte) {
    const std::uint8_t kept = std::max(byte, BLANK);
    if (kept != BLANK || before_ != BLANK) text_[out_++] = static_cast<char>(kept);
    before_ = kept;
  }

  void Finish() { text_.resize(out_); }

 private:
  std::string& text_;
  std::size_t out_ = 0;
  std::uint8_t before_ = 0;
};

}  // namespace

void CompactSpaces(std::string& text) {
  Compactor compactor(text);
  std::size_t i = 0;
  for (; i + BLOCK <= text.size(); i += BLOCK) compactor.MoveBlock(i);
  for (; i < text.size(); ++i) compactor.MoveByte(static_cast<std::uint8_t>(text[i]));
  compactor.Finish();
}

}  // namespace quorvel
