// Marks a word wherever it stands in its contexts: «word».
#pragma once

#include <string>
#include <string_view>

namespace quorvel {

class KeywordMarker {
 public:
  // `word` has at least three characters. `pluralMarksInText` says whether the document itself
  // holds "»s" anywhere.
  KeywordMarker(std::u16string_view word, bool pluralMarksInText);

  // Appends `context` with every occurrence of the word marked, as it is spelled
  // and with a first capital, as part of longer words too. A marked stem takes the
  // "s" behind it inside the marks.
  void MarkKeywordInContext(std::u16string& to, std::u16string_view context) const;

 private:
  [[nodiscard]] std::size_t FindEitherForm(std::u16string_view context, std::size_t i) const;
  [[nodiscard]] bool TakesPlural(std::u16string_view context, std::size_t i) const;

  std::u16string word_;
  char16_t capitalFirst_;
  bool pluralMarksInText_;
};

}  // namespace quorvel
