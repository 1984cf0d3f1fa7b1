// Finds the edges of tokens: the runs of letters, digits and hyphens of a text.
//
// It handles 64 characters at a time. Which word a token stands for is decided by the tokenizer.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "util/alphabet.h"
#include "util/bit_map.h"

namespace quorvel {

class TokenEdges {
 public:
  enum class Which { all, beginnings };

  // Finds the edges from the 0-based index `begin` on, which must not be inside a token. `text` and
  // `alphabet` must outlive the object.
  TokenEdges(std::u16string_view text, const Alphabet& alphabet, Which which, std::size_t begin = 0)
      : text_(text), alphabet_(alphabet), which_(which), blockEnd_(begin) {}

  // Returns the next edge, a 0-based index. With Which::all, the beginning of a token and its end
  // (exclusive) alternate. Returns the length of the text when no edge is left, and also as the end
  // of a token at the end of the text.
  std::size_t Next() {
    while (edges_ == 0) {
      if (blockEnd_ >= text_.size()) return text_.size();
      TakeBlock();
    }
    const auto place = static_cast<std::size_t>(std::countr_zero(edges_));
    edges_ &= edges_ - 1;
    return blockEnd_ - FLAG_COUNT + place;
  }

 private:
  void TakeBlock();
  [[nodiscard]] Flags WordCharacterFlags(const char16_t* block) const;

  std::u16string_view text_;
  const Alphabet& alphabet_;
  Which which_;
  std::size_t blockEnd_;         // end of the current block
  std::uint64_t edges_ = 0;      // edges in the block that were not returned yet
  std::uint64_t isInToken_ = 0;  // 1 when the last character of the block belongs to a token
};

}  // namespace quorvel
