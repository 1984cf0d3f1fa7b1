#include "lists/wildcard.h"

#include <gtest/gtest.h>

#include <random>

#include "support/made_texts.h"
#include "util/ansi.h"

namespace quorvel {
namespace {

// Tries everything that a "*" can stand for.
bool MatchesByTrial(std::u16string_view word, std::u16string_view pattern) {
  if (pattern.empty()) return word.empty();
  if (pattern[0] == u'*') {
    return MatchesByTrial(word, pattern.substr(1)) ||
           (!word.empty() && MatchesByTrial(word.substr(1), pattern));
  }
  if (word.empty()) return false;
  const bool fits = pattern[0] == u'?' || pattern[0] == word[0] ||
                    (pattern[0] == u'#' && word[0] >= u'0' && word[0] <= u'9');
  return fits && MatchesByTrial(word.substr(1), pattern.substr(1));
}

TEST(Wildcards, MatchAsWritten) {
  const struct {
    const char16_t* pattern;
    const char16_t* matched;  // words between blanks
    const char16_t* refused;
  } rows[] = {{u"walk", u"walk", u"walks wal Walk xwalk"},
              {u"#d", u"3d", u"dd ³d 33d"},
              {u"c[aou]t", u"cat cot cut", u"cet ct caot"},
              {u"c[!aou]*", u"ce cet", u"cat c"},
              {u"[?*]x", u"?x *x", u"ax"},
              {u"a[]b", u"", u"ab a]b a[]b"},
              {u"a[b", u"a[b", u"ab"},
              {u"[[[]", u"[", u"[[["},
              {u"]a", u"]a", u"a"}};
  for (const auto& [pattern, matched, refused] : rows) {
    for (const bool expected : {true, false}) {
      std::u16string_view words = expected ? matched : refused;
      while (!words.empty()) {
        const std::u16string_view word = words.substr(0, words.find(u' '));
        EXPECT_EQ(MatchesWildcard(word, pattern), expected)
            << EncodeUtf8(word) << " by " << EncodeUtf8(pattern);
        words.remove_prefix(std::min(word.size() + 1, words.size()));
      }
    }
  }
}

TEST(Wildcards, MatchAsTrialHasIt) {
  std::mt19937 random(4);
  const std::vector<std::u16string> parts = {u"a", u"b", u"ab", u"1", u"*", u"?", u"#"};
  const std::vector<std::u16string> letters = {u"a", u"b", u"1"};
  for (int i = 0; i < 20000; ++i) {
    const std::u16string pattern = RandomText(parts, 6, random).substr(0, 12);
    const std::u16string word = RandomText(letters, 9, random).substr(0, 12);
    ASSERT_EQ(MatchesWildcard(word, pattern), MatchesByTrial(word, pattern))
        << EncodeUtf8(word) << " by " << EncodeUtf8(pattern);
  }
}

// By trial this would take longer than anyone waits.
TEST(Wildcards, NeedNoExponentialTime) {
  const std::string stars = Repeated("*a", 500) + "*b";
  EXPECT_FALSE(MatchesWildcard(std::u16string(20000, u'a'), DecodeUtf8(stars)));
  EXPECT_FALSE(MatchesWildcard(std::u16string(20000, u'a'), std::u16string(100000, u'[')));
}

}  // namespace
}  // namespace quorvel
