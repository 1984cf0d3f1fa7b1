#include "lists/word_file.h"

#include <gtest/gtest.h>

#include "lists/keywords.h"
#include "support/latin.h"
#include "util/utf8.h"

namespace quorvel {
namespace {

std::string Joined(const std::vector<std::u16string>& words) {
  std::string text;
  for (const std::u16string& word : words) text += EncodeUtf8(word) + "|";
  return text;
}

TEST(WordFiles, GiveTheirWords) {
  const std::string rows[][4] = {
      {"LF alone in a file without CR, two in a line", "the\n\na  b\n", "a|b|the|", "a|b|the|"},
      {"LF inside a line", "the\na\r\nan\r\n", "an|the\na|", "an|"},
      {"control characters around lines", "\t the\x01\r\n\x1F\r\n !a\r\n", "!a|the|", "the|"},
      {"duplicates stay", "the\r\nThe\r\nthe\r\n", "The|the|the|", "the|the|the|"},
      {"three characters open and close", "ab\r\n/*/\r\nbc\r\n", "ab|bc|", "ab|bc|"},
      {"comment inside a block closes it", "/* a\r\nb\r\n/* c */\r\nd\r\n", "d|", "d|"},
      {"never closed", "a b\r\n /* c\r\nd\r\n", "a|b|", "a|b|"},
      {"UTF-8 and its mark", "\xEF\xBB\xBF\xC3\xA9t\xC3\xA9 d\xC3\xA9j\xC3\xA0\r\n", "déjà|été|",
       "déjà|été|"},
      {"Windows-1252", "\xE9t\xE9 \x8Cuvre\r\n", "été|Œuvre|", "été|œuvre|"},
      {"plain words only", "colou?r new-york\r\n42 John's walk a+b\r\n",
       "42|John's|a+b|colou?r|new-york|walk|", "walk|"},
      {"keywords in lower case without plural", "Walk DOGS dogs news\r\n", "DOGS|Walk|dogs|news|",
       "dog|dog|new|walk|"}};
  for (const auto& [name, bytes, stopWords, keywords] : rows) {
    SilentProgress nobody;
    SortedWords words = *WordsOfFileBytes(bytes, latin, nobody);
    EXPECT_EQ(Joined(KeywordsOfFile(words, latin)), keywords) << name;
    std::sort(words.begin(), words.end());
    EXPECT_EQ(Joined(words), stopWords) << name;
  }
  const std::string unicode[][3] = {{"Łódź ło\u0301dź\nstół", "stół|Łódź|łódź|", "stół|łódź|łódź|"},
                                    {std::string("\xFF\xFE"
                                                 "A\x01 \0\x10\x04\r\0\n\0",
                                                 12),
                                     "Ł|А|", "ł|а|"},
                                    {"\xE9t\xE9s\r\n", "étés|", "étés|"}};
  for (const auto& [bytes, stopWords, keywords] : unicode) {
    SilentProgress nobody;
    SortedWords words = *WordsOfFileBytes(bytes, Alphabet::Unicode(), nobody);
    EXPECT_EQ(Joined(KeywordsOfFile(words, Alphabet::Unicode())), keywords);
    std::sort(words.begin(), words.end());
    EXPECT_EQ(Joined(words), stopWords);
  }
  SilentProgress stopped;
  stopped.RequestStop();
  EXPECT_EQ(WordsOfFileBytes("the\r\n", latin, stopped).Error().kind, FaultKind::stopped);
}

}  // namespace
}  // namespace quorvel
