#include "output/keyword_marks.h"

#include <utility>

#include "util/find_pair.h"

// The result is defined by three replacements in sequence: mark the word as spelled, mark the word
// with a first capital, then replace "»s" by "s»". The second one finds only what the first one
// left unmarked, and an inserted "»" is followed by an "s" only where the word is followed by one.
// So a single walk can search for both forms. Where a capitalized form overlaps an occurrence of
// the word as spelled, the latter is marked. Only a document that contains "»s" needs the third
// replacement.

namespace quorvel {
namespace {

// These characters have the same numbers in every quotation.
template <typename Char>
constexpr Char OPENING_MARK = static_cast<Char>(u'«');
template <typename Char>
constexpr Char CLOSING_MARK = static_cast<Char>(u'»');

template <typename Char>
void SwapPluralMarks(std::basic_string<Char>& text, std::size_t start) {
  const std::basic_string<Char> mark = MarkInText<Char>(PLURAL_MARK);
  for (std::size_t i = text.find(mark, start); i != text.npos; i = text.find(mark, i + 2)) {
    std::swap(text[i], text[i + 1]);
  }
}

}  // namespace

// If the text does not contain the capital, only the word as spelled can occur.
template <typename Char>
KeywordMarker<Char>::KeywordMarker(std::u16string_view word, const Quotation<Char>& quotation,
                                   const Alphabet& alphabet, bool pluralMarksInText)
    : word_(quotation.Of(word)),
      capitalFirst_(word_.front()),
      pluralMarksInText_(pluralMarksInText) {
  const char16_t capital = alphabet.ToUpperCase(word.front());
  if (quotation.MayHold(capital)) capitalFirst_ = quotation.Of({&capital, 1}).front();
}

template <typename Char>
void KeywordMarker<Char>::MarkKeywordInContext(String& to, View context) const {
  const std::size_t before = to.size();
  std::size_t done = 0;
  while (true) {
    const std::size_t found = FindEitherForm(context, done);
    to.append(context, done, found - done);
    if (found == context.size()) break;
    done = found + word_.size();
    to += OPENING_MARK<Char>;
    to.append(context, found, word_.size());
    if (!pluralMarksInText_ && TakesPlural(context, done)) to += context[done++];
    to += CLOSING_MARK<Char>;
  }
  if (pluralMarksInText_) SwapPluralMarks(to, before);
}

// The index of the next form to mark, from index `i` on, or the length of the context. The search
// is for the second and third characters, because they are the same in both forms.
template <typename Char>
std::size_t KeywordMarker<Char>::FindEitherForm(View context, std::size_t i) const {
  const View rest = View(word_).substr(1);
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
  return overlapping == View::npos ? i : overlapping;
}

// True when an "s" at index `i` belongs to the word before it. An "s" with which the word begins
// again is marked with that occurrence.
template <typename Char>
bool KeywordMarker<Char>::TakesPlural(View context, std::size_t i) const {
  return i < context.size() && context[i] == 's' && context.compare(i, word_.size(), word_) != 0;
}

template class KeywordMarker<char>;
template class KeywordMarker<char16_t>;

}  // namespace quorvel
