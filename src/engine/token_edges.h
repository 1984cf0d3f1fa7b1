// Finds the edges of tokens: the runs of letters, digits and hyphens of a text.
//
// It handles 64 characters at a time. Which word a token stands for is decided by the tokenizer.
#pragma once

#include <algorithm>
#include <bit>
#include <bitset>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "util/alphabet.h"
#include "util/bit_map.h"

namespace quorvel {

class TokenEdges {
 public:
  // The numbers, modulo 32, of characters that a token may begin with.
  using Firsts = std::bitset<32>;

  // Finds the edges from the 0-based index `begin` on, which must not be inside a token: the
  // beginning and the end (exclusive) of each token. `text` and `alphabet` must outlive the object.
  TokenEdges(std::u16string_view text, const Alphabet& alphabet, std::size_t begin = 0)
      : text_(text), alphabet_(alphabet), blockEnd_(begin) {}

  // Finds only the beginnings of tokens, and if `firsts` are few, only of those that begin with one
  // of them.
  TokenEdges(std::u16string_view text, const Alphabet& alphabet, std::size_t begin,
             const Firsts& firsts);

  // Returns the next edge, a 0-based index. Returns the length of the text when no edge is left,
  // and also as the end of a token at the end of the text.
  std::size_t Next() { return NextBefore(text_.size()); }

  // Like Next, but examines the text only up to `limit`, a 0-based index. Each limit but the last
  // is a multiple of FLAG_COUNT characters after the beginning. Returns `limit` when no edge is
  // left before it, or after the last limit an index that is not less.
  std::size_t NextBefore(std::size_t limit) {
    while (edges_ == 0) {
      if (blockEnd_ >= limit) return std::min(blockEnd_, text_.size());
      TakeBlock();
    }
    const auto place = static_cast<std::size_t>(std::countr_zero(edges_));
    edges_ &= edges_ - 1;
    return blockEnd_ - FLAG_COUNT + place;
  }

 private:
  void TakeBlock();
  void FindEdges(const char16_t* block);
  [[nodiscard]] Flags WordCharacterFlags(const char16_t* block) const;
  [[nodiscard]] std::uint64_t WantedBeginnings(const char16_t* block) const;

  std::u16string_view text_;
  const Alphabet& alphabet_;
  bool onlyBeginnings_ = false;
  std::vector<std::uint8_t> firsts_;  // empty if tokens may begin with any character
  std::size_t blockEnd_;              // end of the current block
  std::uint64_t edges_ = 0;           // edges in the block that were not returned yet
  std::uint64_t isInToken_ = 0;       // 1 when the last character of the block belongs to a token
};

}  // namespace quorvel
