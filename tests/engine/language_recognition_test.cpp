#include "engine/language_recognition.h"

#include <gtest/gtest.h>

namespace quorvel {

TEST(LanguageRecognition, GoesByTheWordsThatAreStopWords) {
  const StopWordsByLanguage stopWords = {{{u"the", u"all", u"be"},
                                          {u"der", u"die", u"all"},
                                          {u"être"},
                                          {},
                                          {u"y"},
                                          {u"être", u"les"}}};
  const std::tuple<const char*, const char*, std::size_t> rows[] = {
      {"the first of equals", "all", 0},
      {"more than the first", "\xEAtre les", 5},
      {"any case", "DER Die the", 1},
      {"between double hyphens", "the be - -die--der--die", 1},
      {"no part of a word", "theme there all-the die", 1},
      {"a word of one letter at the end", "y", 4},
      {"a word of two letters at the end", "die - be be", 0}};
  for (const auto& [name, bytes, language] : rows) {
    EXPECT_EQ(RecognizeLanguage(bytes, LanguagesOf(stopWords)), language) << name;
  }
}

}  // namespace quorvel
