// Replaces pairs of bytes, one kind after the other, in a single pass over the text.
//
// The pass is defined by replacements in the whole text: find a lead byte, look at the next byte,
// replace every such pair in the text, continue at the next byte. A text can be constructed in
// which each replacement forms thousands of new pairs for the next one. This implementation touches
// only the bytes that change.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace quorvel {

[[nodiscard]] inline std::uint8_t ByteAt(std::string_view text, std::size_t place) {
  return static_cast<std::uint8_t>(text[place]);
}

// A replacement rule for pairs of one lead byte and a continuation byte. Continuation bytes range
// from FIRST_CONTINUATION to LAST_CONTINUATION.
struct PairRule {
  static constexpr std::uint8_t FIRST_CONTINUATION = 128;
  static constexpr std::uint8_t LAST_CONTINUATION = 191;

  char lead;
  std::uint8_t firstReplaced;  // pairs with smaller continuation bytes are removed
  std::uint8_t shift;          // all others become the continuation byte plus `shift`

  // True when `next` is a continuation byte.
  [[nodiscard]] static bool Covers(std::uint8_t next) {
    return next >= FIRST_CONTINUATION && next <= LAST_CONTINUATION;
  }
  [[nodiscard]] bool Removes(std::uint8_t next) const { return next < firstReplaced; }
  [[nodiscard]] char Replacement(std::uint8_t next) const {
    return static_cast<char>(next + shift);
  }
};

// Continues a pass at the 0-based index `start`, to the end of the text.
void FinishPass(std::string& text, const PairRule& rule, std::size_t start);

}  // namespace quorvel
