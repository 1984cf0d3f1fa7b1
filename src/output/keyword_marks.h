// Marks a word wherever it stands in its contexts: «word».
#pragma once

#include <string>
#include <string_view>

namespace quorvel {

// What must not stand in a marked context: the "s" belongs inside the marks.
inline constexpr std::string_view PLURAL_MARK = "\xBBs";  // »s

class KeywordMarker {
 public:
  // `word` has at least three characters. `pluralMarksInText` says whether the document itself
  // holds "»s" anywhere.
  KeywordMarker(std::u16string_view word, bool pluralMarksInText);

  // Appends `context` with every occurrence of the word marked, as it is spelled
  // and with a first capital, as part of longer words too. A marked stem takes the
  // "s" behind it inside the marks.
  void MarkKeywordInContext(std::string& to, std::string_view context) const;

 private:
  [[nodiscard]] std::size_t FindEitherForm(std::string_view context, std::size_t i) const;
  [[nodiscard]] bool TakesPlural(std::string_view context, std::size_t i) const;

  std::string word_;
  char capitalFirst_;
  bool pluralMarksInText_;
};

}  // namespace quorvel
