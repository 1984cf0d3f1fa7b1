#include "lists/keywords.h"

#include <gtest/gtest.h>

#include "support/scripted_interface.h"
#include "util/ansi.h"

namespace quorvel {
namespace {

// The keywords, each with its context pattern behind a "+".
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
  const std::string bad =
      "Invalid input: The extra keywords textbox contains an inadmissable character: ";
  const std::string twoPlus = "Invalid Input: A keyword cannot contain more then one '+'.\n";
  const struct {
    const char* typed;
    const char* left;  // in the box
    std::string kept;
    std::string said;
    bool hyphens = true;
    bool numerals = false;
  } rows[] = {{"  Harb*   ÉTÉ ", "harb*   été", "harb*|été|", ""},
              {"John's 's dog''ss", "john  dog", "dog|john|", ""},
              {"dogs harbours+ships cats+dogs dogs*", "dogs harbours+ships cats+dogs dogs*",
               "cats+dog|dog|dogs*|harbours+ship|", ""},
              {"+ a+ +b", "+ a+ +b", "+|+b|a+|", ""},
              {"co-op", "co-op", "old|", bad + "-\n", false},
              {"co-op #th 4th", "co-op #th 4th", "#th|4th|co-op|", "", true, true},
              {"4th", "4th", "old|", bad + "4\n"},
              {"[ab]", "[ab]", "old|", bad + "[\n"},
              {"a😀", "a😀", "old|", bad + "😀\n"},
              {"b a+b+c d+e+f", "b a+b+c d+e+f", "old|", twoPlus}};
  for (const auto& [typed, left, kept, said, hyphens, numerals] : rows) {
    ConcordanceSettings settings;
    settings.extraKeywords = typed;
    settings.allowWordsWithHyphens = hyphens;
    settings.allowWordsWithNumerals = numerals;
    KeywordLists lists;
    lists.extraKeywords = ExtraKeywordList({ExtraKeywordOf(u"old")});
    ScriptedInterface ui;
    EXPECT_EQ(GetExtraKeywords(settings, lists, ui), said.empty()) << typed;
    EXPECT_EQ(settings.extraKeywords, left);
    EXPECT_EQ(Joined(lists.extraKeywords), kept);
    EXPECT_EQ(ui.Said(), said);
  }
}

}  // namespace
}  // namespace quorvel
