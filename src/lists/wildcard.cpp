#include "lists/wildcard.h"

// The algorithm walks along word and pattern once. On a mismatch it returns to the last "*" and
// lets it match one more character. Earlier "*" need not be tried again, because the last one can
// match whatever they could.

namespace quorvel {
namespace {

// The element of `pattern` at index `p`: one character, or a list in brackets. A list can begin
// only before `lastBracket`, the index of the last "]".
std::u16string_view ElementAt(std::u16string_view pattern, std::size_t p, std::size_t lastBracket) {
  const bool isList = pattern[p] == u'[' && p < lastBracket;
  return pattern.substr(p, isList ? pattern.find(u']', p) - p + 1 : 1);
}

bool ListHolds(std::u16string_view list, char16_t ch) {
  const bool negated = list.starts_with(u'!');
  if (negated) list.remove_prefix(1);
  return (list.find(ch) != std::u16string_view::npos) != negated;
}

// True when `element`, which must not be "*", matches `ch`.
bool Fits(std::u16string_view element, char16_t ch, const Alphabet& alphabet) {
  if (element.size() > 1) return ListHolds(element.substr(1, element.size() - 2), ch);
  if (element[0] == u'?') return true;
  if (element[0] == u'#') return alphabet.IsDigit(ch);
  return element[0] == ch;
}

}  // namespace

bool MatchesWildcard(std::u16string_view word, std::u16string_view pattern,
                     const Alphabet& alphabet) {
  constexpr std::size_t NONE = std::u16string_view::npos;
  const std::size_t bracket = pattern.rfind(u']');
  const std::size_t lastBracket = bracket == NONE ? 0 : bracket;
  std::size_t behindStar = NONE;  // index in the pattern after the last "*"
  std::size_t starEnd = 0;        // index in the word after the characters that this "*" matches
  std::size_t p = 0;
  std::size_t w = 0;
  while (w < word.size()) {
    if (p < pattern.size() && pattern[p] == u'*') {
      behindStar = ++p;
      starEnd = w;
      continue;
    }
    std::u16string_view element;
    if (p < pattern.size()) element = ElementAt(pattern, p, lastBracket);
    if (!element.empty() && Fits(element, word[w], alphabet)) {
      p += element.size();
      ++w;
    } else if (behindStar != NONE) {
      p = behindStar;
      w = ++starEnd;
    } else {
      return false;
    }
  }
  return pattern.find_first_not_of(u'*', p) == NONE;
}

bool HoldsWildcard(std::u16string_view pattern) {
  return pattern.find_first_of(u"*?#[") != std::u16string_view::npos;
}

}  // namespace quorvel
