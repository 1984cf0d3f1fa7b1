#include "util/visible_text.h"

#include <gtest/gtest.h>

namespace quorvel {

using namespace std::string_view_literals;

TEST(VisibleText, ShowsWhatCannotBePrinted) {
  const std::pair<std::string_view, std::string_view> rows[] = {
      {"a ~/\xC3\xA9\xF0\x9F\x98\x80", "a ~/\xC3\xA9\xF0\x9F\x98\x80"},
      {"C:\\new", "C:\\new"},
      {"\n\r\t\0\x1F\x7F"sv, R"(\n\r\t\x00\x1f\x7f)"},
      {"\xC2\x80\xC2\x9F\xC2\xA0", "\\xc2\\x80\\xc2\\x9f\xC2\xA0"},
      {"\xE9\xC3", "\\xe9\\xc3"},
      {"\xC0\x8A\xED\xA0\x80", R"(\xc0\x8a\xed\xa0\x80)"}};
  for (const auto& [name, shown] : rows) {
    EXPECT_EQ(VisibleName(name), shown);
    EXPECT_EQ(VisibleLines(name), shown);
    EXPECT_EQ(VisibleName(shown), shown) << "shown twice";
  }
  EXPECT_EQ(VisibleLines("a\r\n\r\nb\nc\r\n"), "a\r\n\r\nb\\nc\r\n");
}

}  // namespace quorvel
