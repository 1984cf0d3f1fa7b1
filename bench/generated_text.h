// English-like texts of any length from a random generator.
//
// They are for benchmarks without external data: word frequencies are those of a real language, and
// the same arguments give the same text on every machine. They are not for tests of correctness,
// because they have no accents and no unusual bytes.
#pragma once

#include <cstdint>
#include <string>

namespace quorvel {

struct TextShape {
  std::size_t length = 0;      // in bytes; the text ends with the sentence that reaches it
  std::size_t vocabulary = 0;  // number of different words, without their plurals
  std::uint32_t seed = 0;      // texts that differ only in their seeds use the same language
};

// Sentences with punctuation, in lines that end in CR LF, with some empty lines.
[[nodiscard]] std::string GeneratedText(const TextShape& shape);

// At least `length` bytes of the same sentence, one on each line.
[[nodiscard]] std::string RepeatedSentence(std::size_t length);

}  // namespace quorvel
