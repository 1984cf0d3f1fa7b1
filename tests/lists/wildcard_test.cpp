#include "lists/wildcard.h"

#include <gtest/gtest.h>

#include "support/latin.h"
#include "support/made_texts.h"
#include "util/utf8.h"

namespace quorvel {
namespace {

// Tries everything that each "*" can stand for.
bool MatchesByTrial(std::u16string_view word, std::u16string_view pattern) {
  if (pattern.empty()) return word.empty();
  const std::u16string_view rest = pattern.substr(1);
  const bool one = !word.empty();
  if (pattern[0] == u'*') {
    return MatchesByTrial(word, rest) || (one && MatchesByTrial(word.substr(1), pattern));
  }
  if (!one) return false;
  if (const std::size_t end = rest.find(u']');
      pattern[0] == u'[' && end != std::u16string_view::npos) {
    const bool negated = rest[0] == u'!';
    const std::u16string_view list = rest.substr(negated ? 1 : 0, end - (negated ? 1 : 0));
    return (list.find(word[0]) != std::u16string_view::npos) != negated &&
           MatchesByTrial(word.substr(1), rest.substr(end + 1));
  }
  const bool digit = word[0] >= u'0' && word[0] <= u'9';
  const bool fits = pattern[0] == u'?' || (pattern[0] == u'#' && digit) || pattern[0] == word[0];
  return fits && MatchesByTrial(word.substr(1), rest);
}

TEST(Wildcards, MatchAsByTrial) {
  const std::vector<std::u16string> parts = {u"a", u"b", u"[", u"]", u"!", u"*", u"?", u"#", u"4"};
  std::mt19937 random(2);
  for (int round = 0; round < 30000; ++round) {
    const std::u16string pattern = RandomText(parts, 7, random);
    const auto word =
        RandomText<std::u16string>({u"a", u"a", u"b", u"4", u"³", u"[", u"]", u"!"}, 6, random);
    ASSERT_EQ(MatchesWildcard(word, pattern, latin), MatchesByTrial(word, pattern))
        << EncodeUtf8(word) << " by " << EncodeUtf8(pattern);
  }
}

// Trying all possibilities would take far too long.
TEST(Wildcards, NeedNoExponentialTime) {
  const std::string stars = Repeated("*a", 500) + "*b";
  EXPECT_FALSE(MatchesWildcard(std::u16string(20000, u'a'), DecodeUtf8(stars), latin));
  EXPECT_FALSE(MatchesWildcard(std::u16string(20000, u'a'), std::u16string(100000, u'['), latin));
}

}  // namespace
}  // namespace quorvel
