// Cuts a text into tokens: runs of letters, digits and hyphens.
//
// Where the runs begin and end is found 64 characters at a time. What word a token stands
// for is decided elsewhere.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "util/bit_map.h"

namespace quorvel {

// A token by its 0-based places in the text: from `begin` up to, not including, `end`.
struct Token {
  std::size_t begin = 0;
  std::size_t end = 0;
};

class TokenCutter {
 public:
  // The text must outlive the cutter.
  explicit TokenCutter(std::u16string_view text) : text_(text) {}

  // Goes on to the next token; false when there is none.
  bool Next(Token& token) {
    token.begin = NextEdge();
    token.end = NextEdge();
    return token.begin < text_.size();
  }

 private:
  // The next place where a token begins or has ended; the text's length when there is none.
  std::size_t NextEdge() {
    while (edges_ == 0) {
      if (blockEnd_ >= text_.size()) return text_.size();
      TakeBlock();
    }
    const auto place = static_cast<std::size_t>(std::countr_zero(edges_));
    edges_ &= edges_ - 1;
    return blockEnd_ - FLAG_COUNT + place;
  }

  void TakeBlock();

  std::u16string_view text_;
  std::size_t blockEnd_ = 0;     // of the block that is being looked at
  std::uint64_t edges_ = 0;      // those in it that are still to come
  std::uint64_t isInToken_ = 0;  // 1 where its last character belongs to a token
};

// Where tokens begin, for whoever wants to know the ends of only a few.
class TokenBeginnings {
 public:
  // The text must outlive it.
  explicit TokenBeginnings(std::u16string_view text) : text_(text) {}

  // The 0-based place where the next token begins; the text's length when there is none.
  std::size_t Next() {
    while (beginnings_ == 0) {
      if (blockEnd_ >= text_.size()) return text_.size();
      TakeBlock();
    }
    const auto place = static_cast<std::size_t>(std::countr_zero(beginnings_));
    beginnings_ &= beginnings_ - 1;
    return blockEnd_ - FLAG_COUNT + place;
  }

 private:
  void TakeBlock();

  std::u16string_view text_;
  std::size_t blockEnd_ = 0;
  std::uint64_t beginnings_ = 0;
  std::uint64_t isInToken_ = 0;
};

}  // namespace quorvel
