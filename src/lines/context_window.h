// Cuts the context of one occurrence out of the document text.
//
// A context has a number of words on each side of the keyword. A line break is " / " in the text.
// Unless line breaks are shown, each of them becomes one blank.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "engine/tokenizer.h"
#include "util/bit_map.h"

namespace quorvel {

// How many characters of the text are used for each word of context on each side. If the words are
// longer on average, the context has fewer words.
inline constexpr std::int64_t CHARS_PER_CONTEXT_WORD = 20;

struct ContextOptions {
  int contextSize = 5;  // words on each side, at least 1
  bool showLineBreaks = false;
};

// The parts of a context before and after its word.
template <typename Char>
struct ContextParts {
  std::basic_string_view<Char> left;
  std::basic_string_view<Char> right;
};

// Cuts contexts out of one text of bytes or code units. The text must outlive it.
template <typename Char>
class ContextCutter {
 public:
  using View = std::basic_string_view<Char>;
  using String = std::basic_string<Char>;

  ContextCutter(View text, const ContextOptions& options);

  // The length of the longest context that Cut can return for a word of `wordLength` characters.
  [[nodiscard]] std::size_t LongestContext(std::size_t wordLength) const;

  // Prefetches the characters around a position. The occurrences of a word are far apart in the
  // text, so call this a few occurrences ahead.
  void Prefetch(Position position) const;

  // The context of a word of `wordLength` characters that is recorded at `position`. Empty
  // for a position outside the text. The result is a view of the text. If a line break must be
  // removed, the context is appended to `copies` instead, and the result is a view of `copies`. It
  // is valid until `copies` reallocates, so reserve LongestContext for each call.
  [[nodiscard]] View Cut(Position position, std::size_t wordLength, String& copies) const;

  // The same context, divided at its word. Near the end of the text some contexts end before the
  // word. They have no right part.
  [[nodiscard]] ContextParts<Char> CutApart(Position position, std::size_t wordLength,
                                            const TextSpan& word, String& copies) const;

 private:
  class Window;

  // The characters around a position, or nothing if it is outside the text.
  [[nodiscard]] std::optional<Window> WindowAt(Position position, std::size_t wordLength) const;

  View text_;
  ContextOptions options_;
  BitMap blanks_;   // all blanks of the result
  BitMap removed_;  // the first blank and the slash of each line break that is not shown
};

extern template class ContextCutter<char>;
extern template class ContextCutter<char16_t>;

}  // namespace quorvel
