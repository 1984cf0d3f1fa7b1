#include "input/compact_spaces.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "util/bit_map.h"

// A decision for each byte would be slow, because the ends of words are unpredictable for the
// processor. The text is processed in blocks that the compiler vectorizes. Most blocks have no two
// blanks in a row and are only moved.

namespace quorvel {
namespace {

constexpr std::uint8_t BLANK = ' ';

// Moves bytes towards the front of the text and drops surplus blanks.
class Compactor {
 public:
  explicit Compactor(std::string& text) : text_(text) {}

  // Moves a block of FLAG_COUNT bytes.
  void MoveBlock(std::size_t from) {
    std::array<std::uint8_t, FLAG_COUNT> block{};
    Flags flags{};
    for (std::size_t k = 0; k < FLAG_COUNT; ++k) {
      block[k] = std::max(static_cast<std::uint8_t>(text_[from + k]), BLANK);
      flags[k] = block[k] == BLANK ? 1 : 0;
    }
    const std::uint64_t blanks = BitsOf(flags);
    const std::uint64_t before = before_ == BLANK ? 1 : 0;
    if ((blanks & (blanks << 1U | before)) != 0) {
      for (const std::uint8_t byte : block) MoveByte(byte);
    } else {
      std::copy_n(block.begin(), FLAG_COUNT, text_.begin() + static_cast<std::ptrdiff_t>(out_));
      out_ += FLAG_COUNT;
      before_ = block.back();
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
  for (; i + FLAG_COUNT <= text.size(); i += FLAG_COUNT) compactor.MoveBlock(i);
  for (; i < text.size(); ++i) compactor.MoveByte(static_cast<std::uint8_t>(text[i]));
  compactor.Finish();
}

}  // namespace quorvel
