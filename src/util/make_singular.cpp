#include "util/make_singular.h"

#include <algorithm>
#include <array>

#include "util/characters.h"

namespace quorvel {
namespace {

constexpr std::array<std::u16string_view, 6> UNCHANGED_WORDS = {u"maths",   u"stats",  u"arms",
                                                                u"dickens", u"always", u"perhaps"};

bool KeepsItsEnding(std::u16string_view word) {
  return EqualsInLowerCase(word.substr(word.size() - 3), u"ics") ||
         std::any_of(UNCHANGED_WORDS.begin(), UNCHANGED_WORDS.end(),
                     [word](std::u16string_view kept) { return EqualsInLowerCase(word, kept); });
}

}  // namespace

std::u16string_view MakeSingular(std::u16string_view word, const Alphabet& alphabet) {
  if (word.size() < 3 || word.back() != u's') return word;
  const char16_t before = word[word.size() - 2];
  if (before == u's' || before == u'\'' || alphabet.IsLowerVowel(before)) return word;
  if (KeepsItsEnding(word)) return word;
  return word.substr(0, word.size() - 1);
}

}  // namespace quorvel
