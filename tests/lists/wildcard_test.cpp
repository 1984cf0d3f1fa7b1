#include "lists/wildcard.h"

#include <gtest/gtest.h>

#include "support/made_texts.h"
#include "util/ansi.h"

namespace quorvel {
namespace {

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

// By trial this would take longer than anyone waits.
TEST(Wildcards, NeedNoExponentialTime) {
  const std::string stars = Repeated("*a", 500) + "*b";
  EXPECT_FALSE(MatchesWildcard(std::u16string(20000, u'a'), DecodeUtf8(stars)));
  EXPECT_FALSE(MatchesWildcard(std::u16string(20000, u'a'), std::u16string(100000, u'[')));
}

}  // namespace
}  // namespace quorvel
