#include "lists/keywords.h"

#include <gtest/gtest.h>

#include "lists/wildcard.h"
#include "support/latin.h"
#include "support/made_texts.h"
#include "util/utf8.h"

namespace quorvel {
namespace {

// The keywords, each with its context pattern after a "+".
std::string Joined(const ExtraKeywordList& list) {
  std::string text;
  for (const ExtraKeyword& keyword : list.Keywords()) {
    text += EncodeUtf8(keyword.wildcardPattern);
    if (keyword.hasContextPattern) text += "+" + EncodeUtf8(keyword.contextPattern);
    text += "|";
  }
  return text;
}

TEST(ExtraKeywords, AreTidiedCheckedAndKept) {
  const struct {
    const char* typed;
    const char* left;  // left in the box
    std::string kept;
    std::string fault;  // the character at fault, or "+" for too many plus signs
    bool hyphens = true, numerals = false;
    Reading reading = Reading::windows1252;
  } rows[] = {{"  Harb*   ÉTÉ ", "harb*   été", "harb*|été|", ""},
              {"John's 's dog''ss", "john  dog", "dog|john|", ""},
              {"dogs cats+dogs dogs* +b", "dogs cats+dogs dogs* +b", "+b|cats+dog|dog|dogs*|", ""},
              {"dogs a* Dog dog-a dog dog+b's a* dogs a*", "dogs a* dog dog-a dog dog+b a* dogs a*",
               "a*|a*|dog|dog|dog+b|dog-a|", ""},
              {"co-op", "co-op", "", "-", false},
              {"co-op #th 4th", "co-op #th 4th", "#th|4th|co-op|", "", true, true},
              {"[ab]", "[ab]", "", "["},
              {"a😀", "a😀", "", "😀"},
              {"b a+b+c d+e+f", "b a+b+c d+e+f", "", "+"},
              {"łódź", "łódź", "", "ł"},
              {"ŁO\u0301DŹ Ж* \U00010400s", "łódź ж* \U00010428s", "łódź|ж*|\U00010428|", "", true,
               false, Reading::unicode},
              {"a😀", "a😀", "", "😀", true, true, Reading::unicode},
              {"٣", "٣", "", "٣", true, false, Reading::unicode}};
  for (const auto& [typed, left, kept, fault, hyphens, numerals, reading] : rows) {
    ConcordanceSettings settings;
    settings.reading = reading;
    settings.allowWordsWithHyphens = hyphens;
    settings.allowWordsWithNumerals = numerals;
    const std::string tidied = TidyExtraKeywords(typed, Alphabet::Of(reading));
    EXPECT_EQ(tidied, left);
    const Result<ExtraKeywordList> keywords = ExtraKeywordsOf(tidied, settings);
    EXPECT_EQ(bool(keywords), fault.empty()) << typed;
    if (keywords) {
      EXPECT_EQ(Joined(*keywords), kept);
    } else if (fault == "+") {
      EXPECT_EQ(keywords.Error().kind, FaultKind::manyPlusSigns);
    } else {
      EXPECT_EQ(keywords.Error().kind, FaultKind::notAllowedInKeyword);
      EXPECT_EQ(keywords.Error().reason, fault);
    }
  }
}

TEST(ExtraKeywords, AreFoundByTheWordsThatTheyMatch) {
  std::mt19937 random(1);
  const std::vector<std::u16string> letters = {u"a", u"b", u"c", u"4"};
  const std::vector<std::u16string> parts = {u"a", u"b", u"c", u"4", u"*", u"?", u"#", u"[ab]"};
  for (int round = 0; round < 5000; ++round) {
    std::vector<ExtraKeyword> keywords(random() % 20);
    for (ExtraKeyword& keyword : keywords) keyword.wildcardPattern = RandomText(parts, 4, random);
    const std::u16string word = letters[random() % 4] + RandomText(letters, 2, random);
    std::vector<std::size_t> expected;
    for (std::size_t k = 0; k < keywords.size(); ++k) {
      if (MatchesWildcard(word, keywords[k].wildcardPattern, latin)) expected.push_back(k);
    }
    ASSERT_EQ(ExtraKeywordList(keywords, latin).Matches(word), expected) << EncodeUtf8(word);
  }
}

}  // namespace
}  // namespace quorvel
