#include "engine/word_tests.h"

#include <gtest/gtest.h>

#include <string>

namespace quorvel {
namespace {

TEST(WordTests, KeepWordsOut) {
  const std::pair<const char*, std::vector<std::u16string_view>> rows[] = {
      {"repeated ", {u"aaa", u"44", u"éé", u"-"}},
      {"repeated roman ", {u"iii", u"M"}},
      {"repeated stem ", {u"n", u"N"}},
      {"roman ", {u"IVXLCDM", u"ivxlcdm", u"Mix", u"did", u"mill", u"midi", u"di", u"vivi"}},
      {"stem ", {u"aren", u"COULDN", u"didn", u"Doesn", u"hadn", u"hasn", u"isn", u"shouldn"}},
      {"stem ", {u"wasn", u"weren", u"wouldn", u"ren", u"ouldn", u"sn"}},
      {"", {u"DIM", u"mid", u"Vim", u"cid", u"lid", u"livid", u"vivid", u"civil", u"dill"}},
      {"", {u"Aaa", u"aab", u"mix-i", u"mix4", u"wren", u"mustn", u"isnn", u"xisn", u"arent"}}};
  for (const auto& [tests, words] : rows) {
    for (const std::u16string_view word : words) {
      const std::string found = std::string(IsOneRepeatedChar(word) ? "repeated " : "") +
                                (IsRomanNumeral(word) ? "roman " : "") +
                                (IsContractionStem(word) ? "stem " : "");
      EXPECT_EQ(found, tests) << testing::PrintToString(std::u16string(word));
    }
  }
  EXPECT_FALSE(IsContractionStem(u""));
}

}  // namespace
}  // namespace quorvel
