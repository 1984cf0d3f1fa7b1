#include "engine/token_edges.h"

#include <algorithm>
#include <array>

#include "util/characters.h"

namespace quorvel {
namespace {

constexpr char16_t ASCII_END = 0x80;

// For ASCII alone, and without a table, so that the compiler asks for many characters at once.
constexpr std::uint8_t AsciiWordCharacter(std::uint8_t ch) {
  const auto letter = static_cast<std::uint8_t>((ch | 0x20U) - 'a');
  const auto digit = static_cast<std::uint8_t>(ch - '0');
  return letter < 26 || digit < 10 || ch == '-' ? 1 : 0;
}

constexpr bool AsTheTableSays() {
  for (std::uint8_t ch = 0; ch < ASCII_END; ++ch) {
    if ((AsciiWordCharacter(ch) != 0) != IsWordCharacter(ch)) return false;
  }
  return true;
}
static_assert(AsTheTableSays());

// Of FLAG_COUNT characters.
Flags WordCharacterFlags(const char16_t* characters) {
  Flags flags{};
  char16_t all = 0;
  for (std::size_t i = 0; i < FLAG_COUNT; ++i) {
    all |= characters[i];
    flags[i] = static_cast<std::uint8_t>(characters[i]);
  }
  if (all < ASCII_END) {
    for (std::uint8_t& flag : flags) flag = AsciiWordCharacter(flag);
    return flags;
  }
  for (std::size_t i = 0; i < FLAG_COUNT; ++i) {
    flags[i] = IsWordCharacter(characters[i]) ? 1 : 0;
  }
  return flags;
}

std::uint64_t WordCharacters(std::u16string_view block) {
  if (block.size() == FLAG_COUNT) return BitsOf(WordCharacterFlags(block.data()));
  std::array<char16_t, FLAG_COUNT> characters{};
  std::copy(block.begin(), block.end(), characters.begin());
  return BitsOf(WordCharacterFlags(characters.data()));
}

}  // namespace

void TokenEdges::TakeBlock() {
  const std::uint64_t wordCharacters = WordCharacters(text_.substr(blockEnd_, FLAG_COUNT));
  edges_ = wordCharacters ^ (wordCharacters << 1U | isInToken_);
  if (which_ == Which::beginnings) edges_ &= wordCharacters;
  isInToken_ = wordCharacters >> (FLAG_COUNT - 1);
  blockEnd_ += FLAG_COUNT;
}

}  // namespace quorvel
