#include "lists/keywords.h"

#include <algorithm>
#include <cstdint>
#include <map>
#include <optional>
#include <utility>

#include "lists/wildcard.h"
#include "lists/word_file.h"
#include "util/ascii.h"
#include "util/make_singular.h"
#include "util/utf8.h"

namespace quorvel {
namespace {

// Patterns and hyphens are allowed only in extra keywords, whatever the settings: a keywords file
// is a list of plain words.
bool IsPlainWord(std::u16string_view word, const Alphabet& alphabet) {
  for (std::size_t i = 0; i < word.size(); ++i) {
    if ((alphabet.ClassAt(word, i) & CLASS_LETTER) == 0) return false;
  }
  return true;
}

// Removes every "'s", also one that is created by removing another.
std::u16string WithoutPossessives(std::u16string_view text) {
  std::u16string result;
  for (const char16_t ch : text) {
    if (ch == u's' && result.ends_with(u'\'')) {
      result.pop_back();
    } else {
      result += ch;
    }
  }
  return result;
}

// Examines the character that the code unit at `place` belongs to.
bool MayStandInKeyword(std::u16string_view text, std::size_t place,
                       const ConcordanceSettings& settings) {
  const std::uint8_t classes = Alphabet::Of(settings.reading).ClassAt(text, place);
  if ((classes & CLASS_HYPHEN) != 0) return settings.allowWordsWithHyphens;
  if ((classes & CLASS_DIGIT) != 0) return settings.allowWordsWithNumerals;
  return (classes & CLASS_LETTER) != 0 ||
         std::u16string_view(u"*?#+ ").find(text[place]) != std::u16string_view::npos;
}

// The first character of the text that is not allowed in a keyword.
std::optional<Fault> FaultyCharacter(std::u16string_view text,
                                     const ConcordanceSettings& settings) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (MayStandInKeyword(text, i, settings)) continue;
    return Fault{FaultKind::notAllowedInKeyword, {}, CharacterAt(text, i)};
  }
  return std::nullopt;
}

// Removes surplus copies of keywords. Compatibility: a keyword that is given twice lists its
// contexts twice, and users' listings show that. Further copies are dropped, because thousands of
// equal keywords would list everything thousands of times. Keywords that differ in any character
// stay, even if they match the same words.
std::vector<ExtraKeyword> WithoutEqualOnes(const std::vector<std::u16string_view>& keywords) {
  constexpr int MOST_EQUAL = 2;
  std::map<std::u16string_view, int> counts;
  std::vector<ExtraKeyword> list;
  for (const std::u16string_view keyword : keywords) {
    if (++counts[keyword] <= MOST_EQUAL) list.push_back(ExtraKeywordOf(keyword));
  }
  return list;
}

bool HasManyPlusSigns(std::u16string_view keyword) {
  return std::count(keyword.begin(), keyword.end(), u'+') > 1;
}

}  // namespace

ExtraKeyword ExtraKeywordOf(std::u16string_view keyword) {
  const std::size_t plus = keyword.find(u'+');
  if (plus == std::u16string_view::npos) return {std::u16string(keyword), false, {}};
  return {std::u16string(keyword.substr(0, plus)), true, std::u16string(keyword.substr(plus + 1))};
}

bool WantsContext(const ExtraKeyword& keyword, std::u16string_view context,
                  const Alphabet& alphabet) {
  const std::u16string lower = alphabet.ToLowerCase(context);
  const std::vector<std::u16string_view> words = SplitAtBlanks(lower);
  return std::any_of(words.begin(), words.end(), [&keyword, &alphabet](std::u16string_view word) {
    return MatchesWildcard(word, keyword.contextPattern, alphabet);
  });
}

ExtraKeywordList::ExtraKeywordList(std::vector<ExtraKeyword> keywords, const Alphabet& alphabet)
    : keywords_(std::move(keywords)), alphabet_(&alphabet) {
  for (std::size_t i = 0; i < keywords_.size(); ++i) {
    const std::u16string& pattern = keywords_[i].wildcardPattern;
    (HoldsWildcard(pattern) ? wildcard_[pattern.front()] : plain_).push_back(i);
  }
  std::ranges::sort(plain_, {}, [this](std::size_t i) { return PatternOf(i); });
}

std::vector<std::size_t> ExtraKeywordList::Matches(std::u16string_view lowerWord) const {
  std::vector<std::size_t> matches;
  auto plain = std::lower_bound(
      plain_.begin(), plain_.end(), lowerWord,
      [this](std::size_t i, std::u16string_view word) { return PatternOf(i) < word; });
  for (; plain != plain_.end() && PatternOf(*plain) == lowerWord; ++plain) {
    matches.push_back(*plain);
  }
  for (const char16_t first : {lowerWord.front(), u'*', u'?', u'#', u'['}) {
    const auto found = wildcard_.find(first);
    if (found == wildcard_.end()) continue;
    for (const std::size_t i : found->second) {
      if (MatchesWildcard(lowerWord, keywords_[i].wildcardPattern, *alphabet_))
        matches.push_back(i);
    }
  }
  std::sort(matches.begin(), matches.end());
  return matches;
}

bool HoldKeywords(const KeywordLists& lists) {
  return !lists.fileKeywords.empty() || !lists.extraKeywords.Keywords().empty();
}

bool IsSearchWord(std::u16string_view word, const KeywordLists& lists, const Alphabet& alphabet) {
  const std::u16string lower = alphabet.ToLowerCase(word);
  return BinarySearch(lists.fileKeywords, lower) || !lists.extraKeywords.Matches(lower).empty();
}

void EraseSearchWords(KeywordLists& lists) { lists.fileKeywords.clear(); }

SortedWords KeywordsOfFile(const std::vector<std::u16string>& words, const Alphabet& alphabet) {
  SortedWords keywords;
  for (const std::u16string& word : words) {
    if (!IsPlainWord(word, alphabet)) continue;
    keywords.emplace_back(MakeSingular(alphabet.ToLowerCase(word), alphabet));
  }
  std::sort(keywords.begin(), keywords.end());
  return keywords;
}

std::string TidyExtraKeywords(std::string_view text, const Alphabet& alphabet) {
  return EncodeUtf8(WithoutPossessives(alphabet.ToLowerCase(alphabet.Typed(TrimBlanks(text)))));
}

Result<ExtraKeywordList> ExtraKeywordsOf(std::string_view tidied,
                                         const ConcordanceSettings& settings) {
  const std::u16string text = DecodeUtf8(tidied);
  if (std::optional<Fault> fault = FaultyCharacter(text, settings)) return *std::move(fault);
  std::vector<std::u16string_view> keywords = SplitAtBlanks(text);
  if (std::any_of(keywords.begin(), keywords.end(), HasManyPlusSigns)) {
    return Fault{FaultKind::manyPlusSigns, {}, {}};
  }
  std::sort(keywords.begin(), keywords.end());
  const Alphabet& alphabet = Alphabet::Of(settings.reading);
  for (std::u16string_view& keyword : keywords) keyword = MakeSingular(keyword, alphabet);
  return ExtraKeywordList(WithoutEqualOnes(keywords), alphabet);
}

}  // namespace quorvel
