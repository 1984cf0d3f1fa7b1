// Parses extra keywords, and matches a word against a wildcard pattern.
//
// The first line of an input is both the keywords and the pattern, the second line is the word.

#include "lists/keywords.h"

#include "fuzz_input.h"
#include "lists/wildcard.h"
#include "util/utf8.h"

namespace quorvel::fuzz {
namespace {

using View = std::u16string_view;

bool Fits(View element, char16_t ch) {
  if (element == u"?") return true;
  if (element == u"#") return ch >= u'0' && ch <= u'9';
  if (element.size() == 1) return element[0] == ch;
  const View list = element.substr(1, element.size() - 2);
  const bool negated = list.starts_with(u'!');
  return (list.find(ch, negated ? 1 : 0) != View::npos) != negated;
}

// The naive form: keeps the set of all indices in the word that the pattern so far can reach.
bool MatchesBySets(View word, View pattern) {
  std::vector<char> reached(word.size() + 1);
  reached[0] = 1;
  while (!pattern.empty()) {
    const std::size_t close = pattern[0] == u'[' ? pattern.find(u']') : View::npos;
    const View element = pattern.substr(0, close == View::npos ? 1 : close + 1);
    pattern.remove_prefix(element.size());
    if (element == u"*") {
      std::fill(std::find(reached.begin(), reached.end(), 1), reached.end(), 1);
      continue;
    }
    for (std::size_t i = word.size(); i > 0; --i) {
      reached[i] = static_cast<char>(reached[i - 1] != 0 && Fits(element, word[i - 1]));
    }
    reached[0] = 0;
  }
  return reached.back() != 0;
}

// Returns the keywords with one on each line.
std::string Joined(const ExtraKeywordList& list) {
  std::u16string text;
  for (const ExtraKeyword& keyword : list.Keywords()) {
    const auto* const plus = keyword.hasContextPattern ? u"+" : u"";
    text += keyword.wildcardPattern + plus + keyword.contextPattern + u"\n";
  }
  return EncodeUtf8(text);
}

// Returns the keywords that the settings allow, or nothing when they are refused.
std::string CheckKeywords(const ConcordanceSettings& settings) {
  const std::string tidied = TidyExtraKeywords(settings.extraKeywords, Alphabet::Windows1252());
  RequireSame(TidyExtraKeywords(tidied, Alphabet::Windows1252()), tidied,
              "tidied keywords stay as they are");
  const Result<ExtraKeywordList> keywords = ExtraKeywordsOf(tidied, settings);
  if (keywords) return Joined(*keywords);
  const bool isCharacter = keywords.Error().kind == FaultKind::notAllowedInKeyword;
  Require(isCharacter != keywords.Error().reason.empty(), "a bad character is named");
  Require(tidied.find(keywords.Error().reason) != std::string::npos,
          "the named character is one of the keywords' characters");
  return {};
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzInput input(data, size);
  ConcordanceSettings settings;
  settings.extraKeywords = input.Line();
  const std::u16string pattern = DecodeUtf8(settings.extraKeywords);
  const std::u16string word = DecodeUtf8(input.Line());
  Require(MatchesWildcard(word, pattern, Alphabet::Windows1252()) == MatchesBySets(word, pattern),
          "MatchesWildcard equals its naive form");
  settings.allowWordsWithNumerals = true;
  const std::string most = CheckKeywords(settings);
  for (int choice = 0; choice < 3; ++choice) {
    settings.allowWordsWithHyphens = choice == 1;
    settings.allowWordsWithNumerals = choice == 2;
    const std::string keywords = CheckKeywords(settings);
    Require(keywords.empty() || keywords == most,
            "accepted keywords do not depend on the settings");
  }
  return 0;
}

}  // namespace quorvel::fuzz
