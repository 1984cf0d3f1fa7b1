#include "lists/keywords.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "lists/wildcard.h"
#include "lists/word_file.h"
#include "util/ansi.h"
#include "util/characters.h"
#include "util/make_singular.h"
#include "util/number_words.h"

namespace quorvel {
namespace {

constexpr WordFileTexts KEYWORD_TEXTS = {
    .title = "Search words",
    .missing = "Keywords file not found:",
    .progress = "Reading keywords",
    .stopped = "Reading search words was stopped.",
    .failed = "when reading search words from tile ",
};

std::string CountText(const KeywordLists& lists) {
  // "keyword word" is as it has always been said.
  return CountInWords(lists.fileKeywords.size(), "One keyword word", " keywords");
}

// Patterns and hyphens are for the extra keywords only, whatever the settings
// allow: a list of plain words stays one.
bool IsPlainWord(std::u16string_view word) {
  return std::all_of(word.begin(), word.end(), IsLetter);
}

// `text` without any "'s", those included that others leave when they go.
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

bool MayStandInKeyword(char16_t ch, const ConcordanceSettings& settings) {
  if (ch == u'-') return settings.allowWordsWithHyphens;
  if (IsDigit(ch)) return settings.allowWordsWithNumerals;
  return IsLetter(ch) || std::u16string_view(u"*?#+ ").find(ch) != std::u16string_view::npos;
}

bool CheckCharacters(std::u16string_view text, const ConcordanceSettings& settings,
                     UserInterface& ui) {
  const auto* const fault = std::find_if(text.begin(), text.end(), [&settings](char16_t ch) {
    return !MayStandInKeyword(ch, settings);
  });
  if (fault == text.end()) return true;
  ui.Tell("The extra keywords textbox contains an inadmissable character: " +
              CharacterAt(text, static_cast<std::size_t>(fault - text.begin())),
          "Invalid input");
  return false;
}

bool CheckPlusSigns(const std::vector<std::u16string_view>& keywords, UserInterface& ui) {
  if (std::none_of(keywords.begin(), keywords.end(), [](std::u16string_view keyword) {
        return std::count(keyword.begin(), keyword.end(), u'+') > 1;
      })) {
    return true;
  }
  // This title has another case than that of a bad character: so meant.
  ui.Tell("A keyword cannot contain more then one '+'.", "Invalid Input", Icon::information);
  return false;
}

}  // namespace

ExtraKeyword ExtraKeywordOf(std::u16string_view keyword) {
  const std::size_t plus = keyword.find(u'+');
  if (plus == std::u16string_view::npos) return {std::u16string(keyword), false, {}};
  return {std::u16string(keyword.substr(0, plus)), true, std::u16string(keyword.substr(plus + 1))};
}

bool WantsContext(const ExtraKeyword& keyword, std::string_view context) {
  if (!keyword.hasContextPattern) return true;
  const std::u16string lower = ToLowerCase(DecodeAnsi(context));
  const std::vector<std::u16string_view> words = SplitAtBlanks(lower);
  return std::any_of(words.begin(), words.end(), [&keyword](std::u16string_view word) {
    return MatchesWildcard(word, keyword.contextPattern);
  });
}

ExtraKeywordList::ExtraKeywordList(std::vector<ExtraKeyword> keywords)
    : keywords_(std::move(keywords)) {
  for (std::size_t i = 0; i < keywords_.size(); ++i) {
    const std::u16string& pattern = keywords_[i].wildcardPattern;
    (HoldsWildcard(pattern) ? wildcard_[pattern.front()] : plain_).push_back(i);
  }
  std::stable_sort(plain_.begin(), plain_.end(), [this](std::size_t a, std::size_t b) {
    return keywords_[a].wildcardPattern < keywords_[b].wildcardPattern;
  });
}

std::vector<std::size_t> ExtraKeywordList::Matches(std::u16string_view lowerWord) const {
  std::vector<std::size_t> matches;
  auto place = std::lower_bound(plain_.begin(), plain_.end(), lowerWord,
                                [this](std::size_t i, std::u16string_view word) {
                                  return keywords_[i].wildcardPattern < word;
                                });
  for (; place != plain_.end() && keywords_[*place].wildcardPattern == lowerWord; ++place) {
    matches.push_back(*place);
  }
  if (lowerWord.empty()) return matches;
  for (const char16_t first : {lowerWord.front(), u'*', u'?', u'#', u'['}) {
    const auto found = wildcard_.find(first);
    if (found == wildcard_.end()) continue;
    for (const std::size_t i : found->second) {
      if (MatchesWildcard(lowerWord, keywords_[i].wildcardPattern)) matches.push_back(i);
    }
  }
  std::sort(matches.begin(), matches.end());
  // A word that begins like a wildcard has met its patterns twice.
  matches.erase(std::unique(matches.begin(), matches.end()), matches.end());
  return matches;
}

bool HoldKeywords(const KeywordLists& lists) {
  return !lists.fileKeywords.empty() || !lists.extraKeywords.Keywords().empty();
}

bool IsSearchWord(std::u16string_view word, const KeywordLists& lists) {
  const std::u16string lower = ToLowerCase(word);
  return BinarySearch(lists.fileKeywords, lower) || !lists.extraKeywords.Matches(lower).empty();
}

bool ReadKeywordsFile(const std::string& path, KeywordLists& lists, UserInterface& ui) {
  const std::optional<SortedWords> words = ReadWordFile(path, KEYWORD_TEXTS, ui);
  lists.loaded = words.has_value();
  if (!words) return false;
  lists.fileKeywords.clear();
  for (const std::u16string& word : *words) {
    if (IsPlainWord(word)) lists.fileKeywords.emplace_back(MakeSingular(ToLowerCase(word)));
  }
  std::sort(lists.fileKeywords.begin(), lists.fileKeywords.end());
  return true;
}

bool AttemptToReadSearchWords(const std::string& path, KeywordLists& lists, UserInterface& ui) {
  if (!ReadKeywordsFile(path, lists, ui)) return false;
  ui.SetLabel(Label::numberOfWords, CountText(lists));
  ui.SetOutput(KeywordsLoadedText(lists, path) + "\r\n\r\n");
  const Message question = {"Display search words?", "Keywords to search for", Icon::none,
                            Buttons::yesNo, Answer::yes};
  if (ui.Ask(question) == Answer::yes) {
    std::string words;
    for (const std::u16string& word : lists.fileKeywords) words += " " + EncodeUtf8(word);
    ui.AppendOutput(words);
  }
  return true;
}

std::string KeywordsLoadedText(const KeywordLists& lists, const std::string& path) {
  return CountText(lists) + " loaded from " + path;
}

void EraseSearchWords(KeywordLists& lists) {
  lists.fileKeywords.clear();
  lists.loaded = false;
}

bool GetExtraKeywords(ConcordanceSettings& settings, KeywordLists& lists, UserInterface& ui) {
  const std::u16string text =
      WithoutPossessives(ToLowerCase(DecodeUtf8(TrimBlanks(settings.extraKeywords))));
  settings.extraKeywords = EncodeUtf8(text);
  if (!CheckCharacters(text, settings, ui)) return false;
  std::vector<std::u16string_view> keywords = SplitAtBlanks(text);
  if (!CheckPlusSigns(keywords, ui)) return false;
  std::sort(keywords.begin(), keywords.end());
  std::vector<ExtraKeyword> list;
  list.reserve(keywords.size());
  for (const std::u16string_view keyword : keywords) {
    list.push_back(ExtraKeywordOf(MakeSingular(keyword)));
  }
  lists.extraKeywords = ExtraKeywordList(std::move(list));
  return true;
}

}  // namespace quorvel
