// The words that a search looks for: those of a keywords file, and the extra
// keywords that the user types.
//
// A keywords file holds plain words. An extra keyword is a pattern, also where it
// has no wildcard, and may name a second pattern behind a "+", which some word of a
// context must match for that context to be shown.
#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "lists/binary_search.h"
#include "settings/settings.h"
#include "util/alphabet.h"
#include "util/fault.h"

namespace quorvel {

struct ExtraKeyword {
  std::u16string wildcardPattern;  // for the listed word
  bool hasContextPattern = false;
  std::u16string contextPattern;  // for a word of the context; may be empty and so match none
};

// Takes one keyword apart at its "+".
[[nodiscard]] ExtraKeyword ExtraKeywordOf(std::u16string_view keyword);

// Whether one of the words of `context`, with its punctuation, matches the keyword's context
// pattern.
[[nodiscard]] bool WantsContext(const ExtraKeyword& keyword, std::u16string_view context,
                                const Alphabet& alphabet);

// The extra keywords of a search, in the order in which their results are listed.
class ExtraKeywordList {
 public:
  ExtraKeywordList() = default;
  ExtraKeywordList(std::vector<ExtraKeyword> keywords, const Alphabet& alphabet);

  [[nodiscard]] const std::vector<ExtraKeyword>& Keywords() const { return keywords_; }

  // The 0-based places of all keywords whose first pattern matches `lowerWord`, a
  // word in lower case, ascending.
  [[nodiscard]] std::vector<std::size_t> Matches(std::u16string_view lowerWord) const;

 private:
  [[nodiscard]] std::u16string_view PatternOf(std::size_t i) const {
    return keywords_[i].wildcardPattern;
  }

  std::vector<ExtraKeyword> keywords_;
  const Alphabet* alphabet_ = &Alphabet::Windows1252();    // that they were typed for
  std::vector<std::size_t> plain_;                         // without wildcard, by pattern
  std::map<char16_t, std::vector<std::size_t>> wildcard_;  // the others, by first character
};

struct KeywordLists {
  SortedWords fileKeywords;  // lower case, without plural "s"
  ExtraKeywordList extraKeywords;
};

// Whether there is anything to search for.
[[nodiscard]] bool HoldKeywords(const KeywordLists& lists);

// Whether `word` is to be listed in a search.
[[nodiscard]] bool IsSearchWord(std::u16string_view word, const KeywordLists& lists,
                                const Alphabet& alphabet);

void EraseSearchWords(KeywordLists& lists);

// The plain words among those of a keywords file, as a search looks for them.
[[nodiscard]] SortedWords KeywordsOfFile(const std::vector<std::u16string>& words,
                                         const Alphabet& alphabet);

// Extra keywords as they are kept: lower case, without "'s". UTF-8 both ways.
[[nodiscard]] std::string TidyExtraKeywords(std::string_view text, const Alphabet& alphabet);

// The keywords in tidied text. `notAllowedInKeyword`, `manyPlusSigns`.
[[nodiscard]] Result<ExtraKeywordList> ExtraKeywordsOf(std::string_view tidied,
                                                       const ConcordanceSettings& settings);

}  // namespace quorvel
