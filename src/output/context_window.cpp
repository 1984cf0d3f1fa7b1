#include "output/context_window.h"

#include <algorithm>

#include "util/find_pair.h"

// The idea: fetch a window of raw characters around the keyword, walk left over as
// many blanks as words are wanted, then walk right over those blanks, the keyword
// and as many words again. Line breaks that are not shown are no characters of the
// window: instead of copying the window without them, the walks step over their
// first two characters, and only a context that holds one is copied.
//
// Kept on purpose, for contexts in use were cut so: a window that begins with the
// text is cut at the keyword's own place, any other one just before it; a walk
// left looks for a blank two characters further on only, so an empty word between
// two blanks may be passed over; a walk right that fails starts over from the
// window's beginning, counting the failure as a blank.

namespace quorvel {
namespace {

constexpr std::size_t NONE = BitMap::NONE;

// The characters from place `begin` up to, not including, place `end`, 0-based in
// the text. All places are places in the text.
class Window {
 public:
  Window(std::string_view text, const BitMap& blanks, const BitMap& removed,
         const ContextOptions& options, std::size_t begin, std::size_t end)
      : text_(text),
        blanks_(blanks),
        removed_(removed),
        begin_(begin),
        end_(end),
        wordsWanted_(options.contextSize),
        showLineBreaks_(options.showLineBreaks) {}

  // Where the context begins, given where the window is cut.
  [[nodiscard]] std::size_t LeftEdge(std::size_t cut) const {
    int counted = 0;
    while (true) {
      const std::size_t from = PreviousCharacter(PreviousCharacter(cut));
      const std::size_t blank = from == NONE ? NONE : blanks_.LastUpTo(from, begin_);
      if (blank == NONE) return cut;
      if (!IsShownBreakAt(blank + 1) && ++counted == wordsWanted_) return blank + 1;
      cut = blank;
    }
  }

  // Where the context that begins at `start` ends.
  [[nodiscard]] std::size_t RightEdge(std::size_t start) const {
    if (!showLineBreaks_) {
      // All blanks count and there are enough of them: the common case.
      const std::size_t last = blanks_.NthFrom(start, 2 * wordsWanted_ + 1, end_);
      if (last != NONE) return last;
    }
    std::size_t blank = NONE;
    for (int counted = 0; counted <= wordsWanted_;) {
      blank = NextBlank(blank == NONE ? start : blank + 1);
      if (blank == NONE || !IsShownBreakAt(blank + 1)) ++counted;
    }
    for (int counted = 0;;) {
      const std::size_t next = NextBlank(blank == NONE ? start : blank + 1);
      if (next == NONE || next == FirstCharacterFrom(start)) {
        return blank == NONE ? start : blank + 1;
      }
      if (!IsShownBreakAt(next - 1) && ++counted == wordsWanted_) return next;
      blank = next;
    }
  }

  // Appends the characters from `start` to `end` that are not removed.
  void AppendPart(std::string& to, std::size_t start, std::size_t end) const {
    while (start < end) {
      const std::size_t removed = std::min(removed_.NthFrom(start, 1, end), end);
      to += text_.substr(start, removed - start);
      start = FirstCharacterFrom(removed);
      // What the window's own ends cut off a line break stays.
      if (start == removed && removed < end) to += text_[start++];
    }
  }

 private:
  // A line break that the window cuts in two is none.
  [[nodiscard]] bool IsRemoved(std::size_t i) const {
    if (!removed_.IsSet(i)) return false;
    const bool isSlash = text_[i] == '/';
    return isSlash ? i > begin_ && i + 1 < end_ : i + 2 < end_;
  }

  // Whether the slash of a line break that is shown stands at `i`: the blank beside
  // it divides no words.
  [[nodiscard]] bool IsShownBreakAt(std::size_t i) const {
    return showLineBreaks_ && i < end_ && text_[i] == '/';
  }

  [[nodiscard]] std::size_t PreviousCharacter(std::size_t i) const {
    if (i == NONE) return NONE;
    while (i > begin_) {
      if (!IsRemoved(--i)) return i;
    }
    return NONE;
  }

  [[nodiscard]] std::size_t FirstCharacterFrom(std::size_t i) const {
    while (i < end_ && IsRemoved(i)) ++i;
    return i;
  }

  [[nodiscard]] std::size_t NextBlank(std::size_t i) const {
    const std::size_t blank = blanks_.NthFrom(i, 1, end_);
    if (blank != NONE) return blank;
    // The first blank of a line break that the window's end cuts in two stays one.
    for (std::size_t last = std::max(i, end_ - 2); last < end_; ++last) {
      if (text_[last] == ' ') return last;
    }
    return NONE;
  }

  std::string_view text_;
  const BitMap& blanks_;
  const BitMap& removed_;
  std::size_t begin_;
  std::size_t end_;
  int wordsWanted_;
  bool showLineBreaks_;
};

}  // namespace

ContextCutter::ContextCutter(std::string_view text, const ContextOptions& options)
    : text_(text),
      options_(options),
      blanks_(text.size(), [text](std::size_t i) { return text[i] == ' '; }),
      removed_(text.size()) {
  if (options.showLineBreaks) return;
  for (std::size_t i = FindPair(text, 0, ' ', '/'); i + 2 < text.size();
       i = FindPair(text, i + 2, ' ', '/')) {
    if (text[i + 2] != ' ') continue;
    blanks_.Clear(i);
    removed_.Set(i);
    removed_.Set(i + 1);
  }
}

std::size_t ContextCutter::LongestContext(std::size_t wordLength) const {
  return wordLength + static_cast<std::size_t>(2 * CHARS_PER_CONTEXT_WORD * options_.contextSize);
}

void ContextCutter::Prefetch(std::int64_t position) const {
  constexpr std::size_t STEP = 64;  // characters in a cache line
  const auto place = static_cast<std::size_t>(position);
  if (place < STEP || place + STEP >= text_.size()) return;
  __builtin_prefetch(&text_[place - STEP]);
  __builtin_prefetch(&text_[place]);
  __builtin_prefetch(&text_[place + STEP]);
  blanks_.Prefetch(place);
  removed_.Prefetch(place);
}

std::string_view ContextCutter::Cut(std::int64_t position, std::size_t wordLength,
                                    std::string& copies) const {
  const std::int64_t reach = CHARS_PER_CONTEXT_WORD * options_.contextSize;
  const bool fromTextStart = position <= reach;
  const std::int64_t begin = fromTextStart ? 0 : position - reach - 1;
  const std::int64_t cut = fromTextStart ? position - 1 : position - 2;
  if (cut < 0 || static_cast<std::size_t>(cut) >= text_.size()) return {};
  const std::size_t end =
      static_cast<std::size_t>(begin) + LongestContext(fromTextStart ? 0 : wordLength);
  const Window window(text_, blanks_, removed_, options_, static_cast<std::size_t>(begin),
                      std::min(end, text_.size()));
  const std::size_t start = window.LeftEdge(static_cast<std::size_t>(cut));
  const std::size_t stop = window.RightEdge(start);
  if (removed_.NthFrom(start, 1, stop) == BitMap::NONE) return text_.substr(start, stop - start);
  const std::size_t before = copies.size();
  window.AppendPart(copies, start, stop);
  return std::string_view(copies).substr(before);
}

}  // namespace quorvel
