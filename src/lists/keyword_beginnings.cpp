#include "lists/keyword_beginnings.h"

#include "lists/wildcard.h"

namespace quorvel {

KeywordBeginnings::KeywordBeginnings(const KeywordLists& keywords, const Alphabet& alphabet)
    : alphabet_(alphabet) {
  for (const std::u16string& word : keywords.fileKeywords) Add(word, 0, 0);
  for (const ExtraKeyword& keyword : keywords.extraKeywords.Keywords()) {
    Add(keyword.wildcardPattern, 0, 0);
  }
}

// Adds all beginnings that start with `beginning`, the hash of `length` characters, and continue
// with `pattern` after that. A wildcard and everything after the pattern's end match any character.
void KeywordBeginnings::Add(std::u16string_view pattern, std::size_t beginning,
                            std::size_t length) {
  if (length == LENGTH) {
    AddBeginning(beginning);
    return;
  }
  if (length < pattern.size() && !HoldsWildcard(pattern.substr(length, 1))) {
    const char16_t lower = pattern[length];
    Add(pattern, Extended(beginning, lower), length + 1);
    Add(pattern, Extended(beginning, alphabet_.ToUpperCase(lower)), length + 1);
    for (const char16_t ch : alphabet_.OtherCapitalsOf(lower)) {
      Add(pattern, Extended(beginning, ch), length + 1);
    }
    return;
  }
  const std::size_t shift = BITS * (LENGTH - length);
  for (std::size_t i = 0; i < std::size_t{1} << shift; ++i) AddBeginning(beginning << shift | i);
}

void KeywordBeginnings::AddBeginning(std::size_t beginning) {
  known_.set(beginning);
  firsts_.set(beginning >> (BITS * (LENGTH - 1)));
}

}  // namespace quorvel
