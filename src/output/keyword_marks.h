// Marks each occurrence of a word in its contexts: «word».
#pragma once

#include <string>
#include <string_view>

#include "lines/quotation.h"
#include "util/alphabet.h"

namespace quorvel {

// This does not occur in marked contexts, because the "s" belongs inside the marks.
inline constexpr std::u16string_view PLURAL_MARK = u"»s";

template <typename Char>
class KeywordMarker {
 public:
  using View = std::basic_string_view<Char>;
  using String = std::basic_string<Char>;

  // `word` must have at least three characters. `pluralMarksInText` must be true if the document
  // contains "»s".
  KeywordMarker(std::u16string_view word, const Quotation<Char>& quotation,
                const Alphabet& alphabet, bool pluralMarksInText);

  // Appends `context` to `to` with every occurrence of the word marked, as spelled and with a first
  // capital, also inside longer words. An "s" after the word is put inside the marks.
  void MarkKeywordInContext(String& to, View context) const;

 private:
  [[nodiscard]] std::size_t FindEitherForm(View context, std::size_t i) const;
  [[nodiscard]] bool TakesPlural(View context, std::size_t i) const;

  String word_;
  Char capitalFirst_;
  bool pluralMarksInText_;
};

extern template class KeywordMarker<char>;
extern template class KeywordMarker<char16_t>;

}  // namespace quorvel
