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

// Comparing a block with more first characters takes longer than the tokens that it excludes.
TokenEdges::TokenEdges(std::u16string_view text, const Alphabet& alphabet, std::size_t begin,
                       const Firsts& firsts)
    : text_(text), alphabet_(alphabet), onlyBeginnings_(true), blockEnd_(begin) {
  constexpr std::size_t FEW = 4;
  if (firsts.count() > FEW) return;
  for (std::size_t i = 0; i < firsts.size(); ++i) {
    if (firsts[i]) firsts_.push_back(static_cast<std::uint8_t>(i));
  }
}

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

// The characters of a block that a wanted token may begin with.
std::uint64_t TokenEdges::WantedBeginnings(const char16_t* block) const {
  if (firsts_.empty()) return ~std::uint64_t{0};
  Flags flags{};
  for (const std::uint8_t first : firsts_) {
    for (std::size_t i = 0; i < FLAG_COUNT; ++i) {
      flags[i] |= static_cast<std::uint8_t>(block[i] % Firsts().size() == first);
    }
  }
  return BitsOf(flags);
}

void TokenEdges::TakeBlock() {
  const std::u16string_view block = text_.substr(blockEnd_, FLAG_COUNT);
  if (block.size() == FLAG_COUNT) return FindEdges(block.data());
  std::array<char16_t, FLAG_COUNT> last{};
  std::copy(block.begin(), block.end(), last.begin());
  FindEdges(last.data());
}

// Finds the edges in the FLAG_COUNT code units at `block`, which follow `blockEnd_`.
void TokenEdges::FindEdges(const char16_t* block) {
  const std::uint64_t wordCharacters = BitsOf(WordCharacterFlags(block));
  edges_ = wordCharacters ^ (wordCharacters << 1U | isInToken_);
  if (onlyBeginnings_) edges_ &= wordCharacters & WantedBeginnings(block);
  isInToken_ = wordCharacters >> (FLAG_COUNT - 1);
  blockEnd_ += FLAG_COUNT;
}

}  // namespace quorvel
