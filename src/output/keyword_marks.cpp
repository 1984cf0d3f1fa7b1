#include "output/keyword_marks.h"

#include <utility>

#include "util/ansi.h"
#include "util/characters.h"
#include "util/find_pair.h"

// Three replacements one after the other give the result: the word as spelled, the
// word with a first capital, then "»s" by "s»". The second finds only what the
// first left unmarked, and a "»" that was put in is followed by an "s" only where
// the context goes on with one behind the word. So one walk does it all, looking
// for either form; a capitalized one that overlaps a place of the word as spelled
// yields to that. Only a document that holds "»s" needs the third replacement as
// such.

namespace quorvel {
namespace {

constexpr char OPENING_MARK = '\xAB';  // «
constexpr char CLOSING_MARK = '\xBB';  // »

void SwapPluralMarks(std::string& text, std::size_t start) {
  for (std::size_t i = text.find(PLURAL_MARK, start); i != std::string::npos;
       i = text.find(PLURAL_MARK, i + 2)) {
    std::swap(text[i], text[i + 1]);
  }
}

}  // namespace

KeywordMarker::KeywordMarker(std::u16string_view word, bool pluralMarksInText)
    : word_(EncodeAnsi(word)),
      capitalFirst_(EncodeAnsi(std::u16string(1, ToUpperCase(word.front()))).front()),
      pluralMarksInText_(pluralMarksInText) {}

void KeywordMarker::MarkKeywordInContext(std::string& to, std::string_view context) const {
  const std::size_t before = to.size();
  std::size_t done = 0;
  while (true) {
    const std::size_t found = FindEitherForm(context, done);
    to.append(context, done, found - done);
    if (found == context.size()) break;
    done = found + word_.size();
    to += OPENING_MARK;
    to.append(context, found, word_.size());
    if (!pluralMarksInText_ && TakesPlural(context, done)) to += context[done++];
    to += CLOSING_MARK;
  }
  if (pluralMarksInText_) SwapPluralMarks(to, before);
}

// The place of the next form to mark, from place `i` on; the context's length when
// there is none. The second and third characters are looked for: they are the same
// in both forms.
std::size_t KeywordMarker::FindEitherForm(std::string_view context, std::size_t i) const {
  const std::string_view rest = std::string_view(word_).substr(1);
  while (true) {
    const std::size_t second = FindPair(context, i + 1, rest[0], rest[1]);
    if (second == context.size()) return second;
    i = second - 1;
    const bool isForm = context[i] == word_[0] || context[i] == capitalFirst_;
    if (isForm && context.substr(second, rest.size()) == rest) break;
    ++i;
  }
  if (context[i] == word_[0]) return i;
  const std::size_t overlapping = context.substr(0, i + 2 * word_.size() - 1).find(word_, i + 1);
  return overlapping == std::string_view::npos ? i : overlapping;
}

// Whether an "s" stands at `i` that belongs to the word before it: one that begins
// the word again is marked with that.
bool KeywordMarker::TakesPlural(std::string_view context, std::size_t i) const {
  return i < context.size() && context[i] == 's' && context.compare(i, word_.size(), word_) != 0;
}

}  // namespace quorvel
