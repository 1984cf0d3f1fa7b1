// The keywords of a search: those of a keywords file, and the extra keywords that the user types.
//
// A keywords file has plain words. An extra keyword is a pattern, with or without wildcards. After
// a "+" it may have a second pattern; then a context is shown only if one of its words matches
// that.
#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "lists/sorted_words.h"
#include "settings/settings.h"
#include "util/alphabet.h"
#include "util/fault.h"

namespace quorvel {

struct ExtraKeyword {
  std::u16string wildcardPattern;  // for the listed word
  bool hasContextPattern = false;
  std::u16string contextPattern;  // for a word of the context; empty matches no word
};

// Splits a keyword at its "+".
[[nodiscard]] ExtraKeyword ExtraKeywordOf(std::u16string_view keyword);

// True when one of the words of `context`, including its punctuation, matches the keyword's context
// pattern.
[[nodiscard]] bool WantsContext(const ExtraKeyword& keyword, std::u16string_view context,
                                const Alphabet& alphabet);

// The extra keywords of a search, in the order of their results in the listing.
class ExtraKeywordList {
 public:
  ExtraKeywordList() = default;
  ExtraKeywordList(std::vector<ExtraKeyword> keywords, const Alphabet& alphabet);

  [[nodiscard]] const std::vector<ExtraKeyword>& Keywords() const { return keywords_; }

  // Returns the 0-based indices, in ascending order, of all keywords whose first pattern matches
  // `lowerWord`, a word in lower case.
  [[nodiscard]] std::vector<std::size_t> Matches(std::u16string_view lowerWord) const;

 private:
  [[nodiscard]] std::u16string_view PatternOf(std::size_t i) const {
    return keywords_[i].wildcardPattern;
  }

  std::vector<ExtraKeyword> keywords_;
  const Alphabet* alphabet_ = &Alphabet::Windows1252();    // that the keywords were typed for
  std::vector<std::size_t> plain_;                         // indices, sorted by pattern
  std::map<char16_t, std::vector<std::size_t>> wildcard_;  // with wildcards, by first character
};

struct KeywordLists {
  SortedWords fileKeywords;  // lower case, without plural "s"
  ExtraKeywordList extraKeywords;
};

// True when there is at least one keyword.
[[nodiscard]] bool HoldKeywords(const KeywordLists& lists);

// True when a search lists `word`.
[[nodiscard]] bool IsSearchWord(std::u16string_view word, const KeywordLists& lists,
                                const Alphabet& alphabet);

// Removes the file keywords. The extra keywords stay.
void EraseSearchWords(KeywordLists& lists);

// Returns the plain words of a keywords file in the form that a search uses.
[[nodiscard]] SortedWords KeywordsOfFile(const std::vector<std::u16string>& words,
                                         const Alphabet& alphabet);

// Returns extra keywords in their stored form: lower case, without "'s". UTF-8 in and out.
[[nodiscard]] std::string TidyExtraKeywords(std::string_view text, const Alphabet& alphabet);

// Parses tidied extra keywords. Faults: `notAllowedInKeyword`, `manyPlusSigns`.
[[nodiscard]] Result<ExtraKeywordList> ExtraKeywordsOf(std::string_view tidied,
                                                       const ConcordanceSettings& settings);

}  // namespace quorvel
