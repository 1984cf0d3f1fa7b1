// English-like texts of any length, made from numbers.
//
// For measuring, so that nothing need be at hand: word frequencies fall as they do in a
// language, and the same arguments give the same text everywhere. Not for tests of
// correctness: neither accents nor odd bytes come up.
#pragma once

#include <cstdint>
#include <string>

namespace quorvel {

struct TextShape {
  std::size_t length = 0;      // in bytes; the text ends with the sentence that reaches it
  std::size_t vocabulary = 0;  // different words to draw from, the plurals not counted
  std::uint32_t seed = 0;      // texts that differ in this alone are in one language
};

// Sentences with punctuation, in lines that end in CR LF, now and then an empty one.
[[nodiscard]] std::string GeneratedText(const TextShape& shape);

// One sentence to a line, again and again, in at least `length` bytes.
[[nodiscard]] std::string RepeatedSentence(std::size_t length);

}  // namespace quorvel
