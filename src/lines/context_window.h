// Cuts the context of one occurrence out of the document text.
//
// A context is a number of words on each side of the keyword, at word boundaries.
// Line breaks stand in the text as " / "; they are taken out, each leaving one
// blank, unless they are to be shown.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "engine/tokenizer.h"
#include "util/bit_map.h"

namespace quorvel {

// The characters fetched for each word of context on each side. Words that are
// longer on average make a context shorter.
inline constexpr std::int64_t CHARS_PER_CONTEXT_WORD = 20;

struct ContextOptions {
  int contextSize = 5;  // words on each side, at least 1
  bool showLineBreaks = false;
};

// What a context has before a word and behind it.
template <typename Char>
struct ContextParts {
  std::basic_string_view<Char> left;
  std::basic_string_view<Char> right;
};

// Cuts contexts out of one text, of bytes or of code units, which must outlive it.
template <typename Char>
class ContextCutter {
 public:
  using View = std::basic_string_view<Char>;
  using String = std::basic_string<Char>;

  ContextCutter(View text, const ContextOptions& options);

  // The longest context that Cut may give for a word of `wordLength`, in characters.
  [[nodiscard]] std::size_t LongestContext(std::size_t wordLength) const;

  // Has the characters around a position fetched from memory. The occurrences of a
  // word lie all over the text: asked for some occurrences ahead, they are there
  // when their contexts are cut.
  void Prefetch(std::int64_t position) const;

  // The context of the occurrence recorded at `position`, 1-based, of a word of
  // `wordLength` characters; empty for a position outside the text. The result views
  // the text, or `copies` where a line break had to be taken out: it is appended
  // there, and the view stays valid only as long as `copies` is not moved (reserve
  // LongestContext for each call).
  [[nodiscard]] View Cut(std::int64_t position, std::size_t wordLength, String& copies) const;

  // The same context, taken apart at the place of its word. A context that ends before the
  // word, as some do near the end of the text, has nothing behind it.
  [[nodiscard]] ContextParts<Char> CutApart(std::int64_t position, std::size_t wordLength,
                                            const TextSpan& word, String& copies) const;

 private:
  class Window;

  // The characters around a position; nothing for one outside the text.
  [[nodiscard]] std::optional<Window> WindowAt(std::int64_t position, std::size_t wordLength) const;

  View text_;
  ContextOptions options_;
  BitMap blanks_;   // all that stay blanks
  BitMap removed_;  // the first blank and the slash of each line break that is not shown
};

extern template class ContextCutter<char>;
extern template class ContextCutter<char16_t>;

}  // namespace quorvel
