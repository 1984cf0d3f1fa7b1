// Where the tokens of a text, its runs of letters, digits and hyphens, begin and end.
//
// Found 64 characters at a time. What word a token stands for is decided elsewhere.
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

  // The text must outlive it.
  TokenEdges(std::u16string_view text, const Alphabet& alphabet, Which which)
      : text_(text), alphabet_(alphabet), which_(which) {}

  // The next 0-based place where a token begins or, of all edges, has ended: these take turns. The
  // text's length when there is none, also where the last token ends with the text.
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
  std::size_t blockEnd_ = 0;     // of the block that is being looked at
  std::uint64_t edges_ = 0;      // those in it that are still to come
  std::uint64_t isInToken_ = 0;  // 1 where its last character belongs to a token
};

}  // namespace quorvel
