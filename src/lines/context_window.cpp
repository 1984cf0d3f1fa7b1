#include "lines/context_window.h"

#include <algorithm>
#include <bit>

#include "util/utf8.h"

// The idea: take a window of characters around the keyword. Walk left over as many blanks as the
// context has words. Then walk right over these words, the keyword and as many words again. Line
// breaks that are not shown do not belong to the window. The window is not copied without them. The
// walks skip their first two characters, and only a context that contains a line break is copied.
//
// Compatibility: users' listings depend on these rules. A window that begins at the beginning of
// the text is cut at the keyword, any other window just before it. The walk left searches for the
// next blank from two characters further on, so it may skip an empty word between two blanks. If
// the walk right finds no blank, it counts this as a blank and starts again at the beginning of the
// window.

namespace quorvel {
namespace {

constexpr std::size_t NONE = BitMap::NONE;

// Returns `place`, or the place before it if `place` is in the middle of a character.
std::size_t CharacterEdge(std::u16string_view text, std::size_t place) {
  return place < text.size() && IsLowSurrogate(text[place]) && place > 0 ? place - 1 : place;
}
std::size_t CharacterEdge(std::string_view, std::size_t place) { return place; }

}  // namespace

// The characters from `begin` up to but not including `end`, cut at `cut`. All are 0-based indices
// in the text.
template <typename Char>
class ContextCutter<Char>::Window {
 public:
  Window(const ContextCutter& cutter, std::size_t begin, std::size_t cut, std::size_t end)
      : text_(cutter.text_),
        blanks_(cutter.blanks_),
        removed_(cutter.removed_),
        begin_(begin),
        cut_(cut),
        end_(end),
        wordsWanted_(cutter.options_.contextSize),
        showLineBreaks_(cutter.options_.showLineBreaks) {}

  // The indices at which the context begins and ends.
  [[nodiscard]] TextSpan Edges() const {
    const std::size_t near = NearLeftEdge();
    const std::size_t start = near != NONE ? near : LeftEdge();
    const std::size_t stop = near != NONE ? NearRightEdge() : NONE;
    return {start, stop != NONE ? stop : RightEdge(start)};
  }

  // The characters from `start` to `end` that are not removed. A view of the text if none are
  // removed, otherwise they are appended to `copies`, and the view is of `copies`.
  [[nodiscard]] View Part(std::size_t start, std::size_t end, String& copies) const {
    if (removed_.NthFrom(start, 1, end) == NONE) return text_.substr(start, end - start);
    const std::size_t before = copies.size();
    AppendPart(copies, start, end);
    return View(copies).substr(before);
  }

 private:
  [[nodiscard]] std::size_t LeftEdge() const {
    int counted = 0;
    std::size_t cut = cut_;
    while (true) {
      const std::size_t from = PreviousCharacter(PreviousCharacter(cut));
      const std::size_t blank = from == NONE ? NONE : blanks_.LastUpTo(from, begin_);
      if (blank == NONE) return cut;
      if (!IsShownBreakAt(blank + 1) && ++counted == wordsWanted_) return blank + 1;
      cut = blank;
    }
  }

  // The end of the context that begins at `start`.
  [[nodiscard]] std::size_t RightEdge(std::size_t start) const {
    if (!showLineBreaks_) {
      // The common case: all blanks count, and there are enough of them.
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

  void AppendPart(String& to, std::size_t start, std::size_t end) const {
    while (start < end) {
      const std::size_t removed = std::min(removed_.NthFrom(start, 1, end), end);
      to += text_.substr(start, removed - start);
      start = FirstCharacterFrom(removed);
      // The part of a line break that the end of the window leaves is not removed.
      if (start == removed && removed < end) to += text_[start++];
    }
  }

  // The edges of most contexts are found in the bits of 64 characters on each side of the cut.

  // The left edge where it follows from the 64 characters before the cut: no blank is skipped
  // there, because none has another one or a removed line break after it. Otherwise NONE.
  [[nodiscard]] std::size_t NearLeftEdge() const {
    if (showLineBreaks_ || cut_ < begin_ + FLAG_COUNT) return NONE;
    constexpr std::uint64_t CUT = std::uint64_t{1} << (FLAG_COUNT - 1);
    // The walk begins two characters before the cut.
    std::uint64_t blanks = (blanks_.LastBits(cut_) | CUT) & ~(CUT >> 1U);
    if ((blanks & (blanks | removed_.LastBits(cut_)) >> 1U) != 0) return NONE;
    for (int counted = 0; counted < wordsWanted_; ++counted) {
      blanks &= ~(CUT >> std::countl_zero(blanks));
      if (blanks == 0) return NONE;
    }
    return cut_ + 1 - static_cast<std::size_t>(std::countl_zero(blanks));
  }

  // The right edge that belongs to this left edge if it is not far from the cut, otherwise NONE.
  // The left part of the context has one blank less than words. The window has more characters
  // after the cut than are searched here.
  [[nodiscard]] std::size_t NearRightEdge() const {
    std::uint64_t blanks = blanks_.FirstBits(cut_ - 1);
    for (int counted = 0; counted <= wordsWanted_; ++counted) blanks &= blanks - 1;
    if (blanks == 0) return NONE;
    return cut_ - 1 + static_cast<std::size_t>(std::countr_zero(blanks));
  }

  // A line break that the window divides does not count as one.
  [[nodiscard]] bool IsRemoved(std::size_t i) const {
    if (!removed_.IsSet(i)) return false;
    const bool isSlash = text_[i] == '/';
    return isSlash ? i > begin_ && i + 1 < end_ : i + 2 < end_;
  }

  // True if the slash of a shown line break is at `i`. The blank beside it does not separate words.
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
    while (IsRemoved(i)) ++i;
    return i;
  }

  [[nodiscard]] std::size_t NextBlank(std::size_t i) const {
    const std::size_t blank = blanks_.NthFrom(i, 1, end_);
    if (blank != NONE) return blank;
    // The first blank of a line break that the end of the window divides remains a blank.
    for (std::size_t last = std::max(i, end_ - 2); last < end_; ++last) {
      if (text_[last] == ' ') return last;
    }
    return NONE;
  }

  View text_;
  const BitMap& blanks_;
  const BitMap& removed_;
  std::size_t begin_;
  std::size_t cut_;
  std::size_t end_;
  int wordsWanted_;
  bool showLineBreaks_;
};

template <typename Char>
ContextCutter<Char>::ContextCutter(View text, const ContextOptions& options)
    : text_(text),
      options_(options),
      blanks_(text.size(), [text](std::size_t i) { return text[i] == ' '; }),
      removed_(text.size()) {
  if (options.showLineBreaks) return;
  blanks_.EachTwoApart([this](std::size_t i) {
    if (text_[i + 1] != '/') return;
    blanks_.Clear(i);
    removed_.Set(i);
    removed_.Set(i + 1);
  });
}

template <typename Char>
std::size_t ContextCutter<Char>::LongestContext(std::size_t wordLength) const {
  return wordLength + static_cast<std::size_t>(2 * CHARS_PER_CONTEXT_WORD * options_.contextSize);
}

template <typename Char>
void ContextCutter<Char>::Prefetch(Position position) const {
  constexpr std::size_t STEP = 64;  // characters in a cache line
  const std::size_t place = IndexOf(position);
  if (place < STEP || place + STEP >= text_.size()) return;
  __builtin_prefetch(&text_[place - STEP]);
  __builtin_prefetch(&text_[place]);
  __builtin_prefetch(&text_[place + STEP]);
  blanks_.Prefetch(place);
  removed_.Prefetch(place);
}

template <typename Char>
auto ContextCutter<Char>::WindowAt(Position position, std::size_t wordLength) const
    -> std::optional<Window> {
  const auto reach = static_cast<std::size_t>(CHARS_PER_CONTEXT_WORD * options_.contextSize);
  const std::size_t word = IndexOf(position);
  const bool fromTextStart = word < reach;
  const std::size_t begin = fromTextStart ? 0 : word - reach;
  const std::size_t cut = fromTextStart ? word : word - 1;
  if (cut >= text_.size()) return std::nullopt;
  const std::size_t end = begin + LongestContext(fromTextStart ? 0 : wordLength);
  return Window(*this, CharacterEdge(text_, begin), cut,
                CharacterEdge(text_, std::min(end, text_.size())));
}

template <typename Char>
auto ContextCutter<Char>::Cut(Position position, std::size_t wordLength, String& copies) const
    -> View {
  const std::optional<Window> window = WindowAt(position, wordLength);
  if (!window) return {};
  const TextSpan edges = window->Edges();
  return window->Part(edges.begin, edges.end, copies);
}

template <typename Char>
ContextParts<Char> ContextCutter<Char>::CutApart(Position position, std::size_t wordLength,
                                                 const TextSpan& word, String& copies) const {
  const std::optional<Window> window = WindowAt(position, wordLength);
  if (!window) return {};
  const TextSpan edges = window->Edges();
  const std::size_t left = std::clamp(word.begin, edges.begin, edges.end);
  const std::size_t right = std::clamp(word.end, edges.begin, edges.end);
  return {window->Part(edges.begin, left, copies), window->Part(right, edges.end, copies)};
}

template class ContextCutter<char>;
template class ContextCutter<char16_t>;

}  // namespace quorvel
