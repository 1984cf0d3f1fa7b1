#include "engine/token_edges.h"

#include <algorithm>
#include <array>

namespace quorvel {
namespace {

constexpr char16_t ASCII_END = 0x80;

// ASCII only and without a table, so that the compiler vectorizes the loop that calls it.
constexpr std::uint8_t AsciiWordCharacter(std::uint8_t ch) {
  const auto letter = static_cast<std::uint8_t>((ch | 0x20U) - 'a');
  const auto digit = static_cast<std::uint8_t>(ch - '0');
  return letter < 26 || digit < 10 || ch == '-' ? 1 : 0;
}

constexpr bool MatchesCharacterClasses() {
  for (std::uint8_t ch = 0; ch < ASCII_END; ++ch) {
    if ((AsciiWordCharacter(ch) != 0) != IsWordCharacter(ch)) return false;
  }
  return true;
}
static_assert(MatchesCharacterClasses());

}  // namespace

// The flags of a block of FLAG_COUNT code units that begins at `blockEnd_`.
Flags TokenEdges::WordCharacterFlags(const char16_t* block) const {
  Flags flags{};
  char16_t all = 0;
  for (std::size_t i = 0; i < FLAG_COUNT; ++i) {
    all |= block[i];
    flags[i] = static_cast<std::uint8_t>(block[i]);
  }
  if (all < ASCII_END) {
    for (std::uint8_t& flag : flags) flag = AsciiWordCharacter(flag);
    return flags;
  }
  std::uint8_t classes = 0;
  for (std::size_t i = 0; i < FLAG_COUNT; ++i) {
    const std::uint8_t bits = alphabet_.ClassOf(block[i]);
    classes |= bits;
    flags[i] = (bits & WORD_CLASSES) != 0 ? 1 : 0;
  }
  if ((classes & CLASS_SURROGATE) != 0) {
    // The other half of a surrogate pair may be in the next block.
    for (std::size_t i = 0; i < FLAG_COUNT && blockEnd_ + i < text_.size(); ++i) {
      flags[i] = alphabet_.IsWordCharacterAt(text_, blockEnd_ + i) ? 1 : 0;
    }
  }
  return flags;
}

void TokenEdges::TakeBlock() {
  const std::u16string_view block = text_.substr(blockEnd_, FLAG_COUNT);
  std::array<char16_t, FLAG_COUNT> last{};
  if (block.size() < FLAG_COUNT) std::copy(block.begin(), block.end(), last.begin());
  const std::uint64_t wordCharacters =
      BitsOf(WordCharacterFlags(block.size() < FLAG_COUNT ? last.data() : block.data()));
  edges_ = wordCharacters ^ (wordCharacters << 1U | isInToken_);
  if (which_ == Which::beginnings) edges_ &= wordCharacters;
  isInToken_ = wordCharacters >> (FLAG_COUNT - 1);
  blockEnd_ += FLAG_COUNT;
}

}  // namespace quorvel
