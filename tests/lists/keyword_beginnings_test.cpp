#include "lists/keyword_beginnings.h"

#include <gtest/gtest.h>

#include "lists/word_file.h"
#include "util/ansi.h"

namespace quorvel {
namespace {

TEST(KeywordBeginnings, TellKeywordsFromOtherWords) {
  const struct {
    SortedWords ofFile;
    const char* extra;
    const char16_t* beginnings;  // of words that may be keywords
    const char16_t* others;
  } rows[] = {{{u"harbour", u"œuvre"}, "", u"har Har HAR hAr œuv Œuv ŒUV", u"hap hbr xar œub"},
              {{u"sea"}, "co-op éTé 4th", u"sea SEa co- ÉTÉ 4TH", u"seb ca- éta 5th the"},
              {{}, "ab a*x b?d", u"abx ABy a-z bad b4d Axy", u"cab dab 4ab"},
              {{}, "xy*", u"xya XYZ", u"xxa yxy"},
              {{}, "harbour *", u"har the 4th -co", u""},
              {{}, "+sea", u"har the", u""},
              {{}, "#th", u"4th the", u""},
              {{}, "", u"", u"har the"}};
  for (const auto& [ofFile, extra, beginnings, others] : rows) {
    ConcordanceSettings settings;
    settings.allowWordsWithNumerals = true;
    const std::string tidied = TidyExtraKeywords(extra);
    const KeywordBeginnings known({ofFile, *ExtraKeywordsOf(tidied, settings)});
    for (const bool expected : {true, false}) {
      for (const std::u16string_view word : SplitAtBlanks(expected ? beginnings : others)) {
        EXPECT_EQ(known.MayBegin(word.data()), expected) << EncodeUtf8(word) << " of " << extra;
      }
    }
  }
}

}  // namespace
}  // namespace quorvel
