#include "input/text_file.h"

#include <gtest/gtest.h>

namespace quorvel {

TEST(TextFile, JoinsLines) {
  // Each name, bytes, text, and whether it is UTF-8.
  const std::tuple<const char*, const char*, const char*, bool> rows[] = {
      {"lone CR ends a line", "a\rb\r\r\nc", "a / b / c", true},
      {"lone LF ends none", "a\nb\n", "a\nb\n", true},
      {"blanks are a line", "a\r\n \r\n\r\nb\r\n", "a /   / b", true},
      {"a line end at the end of a line end", "a\r\n\n\r", "a / \n", true},
      {"mark dropped", "\xEF\xBB\xBFz", "z", true},
      {"a line of its own for the mark", "\xEF\xBB\xBF\r\nz", "z", true},
      {"mark kept", "\xEF\xBB\xBFz", "\xEF\xBB\xBFz", false},
      {"emptied", "a\r\n\xC2\x85\r\nb", "a /  / b", true},
      {"each line has its own first sequence", "\xE2\x80\xA0\xE2\x80\x9C\r\n\xE2\x80\x9C",
       "\xE2\x80\x9C / \"", true}};
  for (const auto& [name, bytes, text, isUtf8] : rows) {
    EXPECT_EQ(ReadTextFile(bytes, {isUtf8, LineJoin::slash}), text) << name;
  }
  EXPECT_EQ(ReadTextFile("a\r\nb", {false, LineJoin::blank}), "a b");
  const std::pair<const char*, const char*> lineFeeds[] = {
      {"\na\nb\rc\r\nd\n\re\n\n", "a / b / c / d / e"}, {"a\r\r\nb", "a / b"}};
  for (const auto& [bytes, text] : lineFeeds) {
    EXPECT_EQ(ReadTextFile(bytes, {.lineFeedEnds = true}), text) << text;
  }
}

}  // namespace quorvel
