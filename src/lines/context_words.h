// The words of a context, folded for sorting. Lines are ordered and filtered by them.
//
// Words are separated by blanks. Only letters, digits and hyphens count, so "which," is "which" and
// "don't" is "dont". Without a letter or digit it is not a word. A part that an apostrophe joins to
// the match, as in "lamp's" or "l'eau", belongs to the match.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "lines/quotation.h"
#include "util/alphabet.h"

namespace quorvel {

// Works on texts in the characters of one quotation.
template <typename Char>
class ContextWords {
 public:
  using View = std::basic_string_view<Char>;

  ContextWords(const Quotation<Char>& quotation, const Alphabet& alphabet);

  // Append the words on one side of a match, each followed by a blank. The first word is the one
  // with the 1-based number `fromWord`, counted from the match.
  void AppendRight(std::u16string& to, View right, int fromWord);
  void AppendLeft(std::u16string& to, View left, int fromWord);

  // Appends one word. Returns false and appends nothing if it is not a word.
  bool AppendWord(std::u16string& to, View word);

 private:
  // How a character is folded, and its properties.
  struct Character {
    std::u16string folded;  // empty if it does not count
    bool makesWord = false;
    bool isApostrophe = false;
  };

  template <typename TakeWord>
  void AppendWords(std::u16string& to, View side, int fromWord, const TakeWord& takeWord);
  [[nodiscard]] const Character& CharacterOf(Char ch);
  [[nodiscard]] Character Made(std::u16string_view character) const;

  Quotation<Char> quotation_;
  const Alphabet& alphabet_;
  std::vector<std::unique_ptr<const Character>> characters_;  // those that occurred, by number
};

extern template class ContextWords<char>;
extern template class ContextWords<char16_t>;

}  // namespace quorvel
