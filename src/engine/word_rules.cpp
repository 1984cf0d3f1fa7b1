#include "engine/word_rules.h"

#include <algorithm>
#include <array>

#include "util/characters.h"

namespace quorvel {
namespace {

constexpr std::u16string_view ROMAN_LETTERS = u"ivxlcdm";

constexpr std::array<std::u16string_view, 9> ROMAN_EXCEPTIONS = {
    u"dim", u"mid", u"vim", u"cid", u"lid", u"livid", u"vivid", u"civil", u"dill"};

constexpr std::array<std::u16string_view, 11> CONTRACTION_STEMS = {
    u"aren", u"couldn",  u"didn", u"doesn", u"hadn",  u"hasn",
    u"isn",  u"shouldn", u"wasn", u"weren", u"wouldn"};

}  // namespace

bool IsOneRepeatedChar(std::u16string_view word) {
  return std::all_of(word.begin(), word.end(), [word](char16_t ch) { return ch == word.front(); });
}

bool IsRomanNumeral(std::u16string_view word) {
  const bool roman = std::all_of(word.begin(), word.end(), [](char16_t ch) {
    return ROMAN_LETTERS.find(ToLowerCase(ch)) != std::u16string_view::npos;
  });
  return roman &&
         std::none_of(ROMAN_EXCEPTIONS.begin(), ROMAN_EXCEPTIONS.end(),
                      [word](std::u16string_view known) { return EqualsInLowerCase(word, known); });
}

bool IsContractionStem(std::u16string_view word) {
  if (word.empty() || ToLowerCase(word.back()) != u'n') return false;
  return std::any_of(CONTRACTION_STEMS.begin(), CONTRACTION_STEMS.end(),
                     [word](std::u16string_view stem) {
                       return word.size() <= stem.size() &&
                              EqualsInLowerCase(word, stem.substr(stem.size() - word.size()));
                     });
}

}  // namespace quorvel
