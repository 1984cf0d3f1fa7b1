// Pairs of bytes replaced one kind after the other, in one walk over the text.
//
// Such a pass is defined by replacements over the whole text: find a lead byte, look at the byte
// after it, replace every such pair wherever it stands, go on one place further. A text can be made
// in which each replacement forms pairs for the next, for thousands of times. Here none of them
// touches more of the text than it changes.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace quorvel {

[[nodiscard]] inline std::uint8_t ByteAt(std::string_view text, std::size_t place) {
  return static_cast<std::uint8_t>(text[place]);
}

// What one lead byte and a byte after it stand for. Bytes that may follow are those from
// FIRST_CONTINUATION to LAST_CONTINUATION.
struct PairRule {
  static constexpr std::uint8_t FIRST_CONTINUATION = 128;
  static constexpr std::uint8_t LAST_CONTINUATION = 191;

  char lead;
  std::uint8_t firstReplaced;  // below this byte the pair is removed;
  std::uint8_t shift;          // from it on it becomes this much more than the byte

  // Whether `next` behind the lead byte makes a pair.
  [[nodiscard]] static bool Covers(std::uint8_t next) {
    return next >= FIRST_CONTINUATION && next <= LAST_CONTINUATION;
  }
  [[nodiscard]] bool Removes(std::uint8_t next) const { return next < firstReplaced; }
  [[nodiscard]] char Replacement(std::uint8_t next) const {
    return static_cast<char>(next + shift);
  }
};

// Goes on with a pass at the 0-based place `start`, to its end.
void FinishPass(std::string& text, const PairRule& rule, std::size_t start);

}  // namespace quorvel
