// The words of a context, folded as words are for sorting: what lines are ordered and filtered by.
//
// Words are divided by blanks. Of each its letters, digits and hyphens count, so that "which," is
// "which" and "don't" is "dont"; what has no letter and no digit is no word. What an apostrophe
// joins to the match, as in "lamp's" or "l'eau", belongs to that.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "lines/quotation.h"
#include "util/alphabet.h"

namespace quorvel {

// For texts in the characters of one quotation.
template <typename Char>
class ContextWords {
 public:
  using View = std::basic_string_view<Char>;

  ContextWords(const Quotation<Char>& quotation, const Alphabet& alphabet);

  // Append the words of what stands right or left of a match, from that outwards and from the
  // 1-based `fromWord` on, each with a blank behind it.
  void AppendRight(std::u16string& to, View right, int fromWord);
  void AppendLeft(std::u16string& to, View left, int fromWord);

  // Appends one word; false, and nothing is appended, where it is none.
  bool AppendWord(std::u16string& to, View word);

 private:
  // What is made of a character, and asked of it.
  struct Character {
    std::u16string folded;  // empty where it does not count
    bool makesWord = false;
    bool isApostrophe = false;
  };

  template <typename TakeWord>
  void AppendWords(std::u16string& to, View side, int fromWord, const TakeWord& takeWord);
  [[nodiscard]] const Character& CharacterOf(Char ch);
  [[nodiscard]] Character Made(std::u16string_view character) const;

  Quotation<Char> quotation_;
  const Alphabet& alphabet_;
  std::vector<std::unique_ptr<const Character>> characters_;  // those that were met, by number
};

extern template class ContextWords<char>;
extern template class ContextWords<char16_t>;

}  // namespace quorvel
