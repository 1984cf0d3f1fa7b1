#include "input/html_text.h"

#include <gtest/gtest.h>

#include "naive/naive_html.h"
#include "support/made_texts.h"

namespace quorvel {
namespace {

enum Lists { KEPT, DROPPED, MARKED };

std::string Stripped(std::string text, Lists lists) {
  if (lists == KEPT) StripTags(text);
  if (lists != KEPT) StripTagsAndLists(text, lists == MARKED);
  return text;
}

TEST(HtmlText, IsItsNaiveForm) {
  const std::vector<std::vector<std::string>> alphabets = {
      {"<", ">", "a", "<p>", "</", "<scripts>", "</SCRIPT>", "<Style>", "</style", "<noScript"},
      {"<ul>", "<UL", "</ul>", "</uL", "<ol>", "</Ol>", "</ol", ">", "a", "<p>", "<script>",
       "</script>"},
      {"<", "/", "u", "o", "l", "s>", ">", "[", "@", "<\xF5l", "<ul>", "</ul>", "\x15l"}};
  std::mt19937 random(1);
  for (std::size_t i = 0; i < 3000; ++i) {
    const std::string text = RandomText(alphabets[i % alphabets.size()], 20, random);
    ASSERT_EQ(Stripped(text, KEPT), naive::StripTags(text)) << text;
    ASSERT_EQ(Stripped(text, DROPPED), naive::StripTagsAndLists(text, false)) << text;
    ASSERT_EQ(Stripped(text, MARKED), naive::StripTagsAndLists(text, true)) << text;
  }
}

TEST(HtmlText, HostileTextsTakeLinearTime) {
  constexpr int MANY = 200000;
  EXPECT_EQ(Stripped(Repeated("<", MANY), KEPT), "");
  EXPECT_EQ(Stripped("<p>" + Repeated("<script", MANY), KEPT), " ");
  EXPECT_EQ(Stripped(Repeated("<ul>", MANY) + Repeated("</ul>", MANY), MARKED), " //  ");
  EXPECT_EQ(Stripped(Repeated("<ul></ul", MANY), MARKED), Repeated(" // ", MANY));
}

TEST(HtmlText, IsMadeOfPages) {
  using enum HtmlOutcome;
  const std::string page =
      "<!doctype HTML><title>Lost</title></Head> <body>caf&eacute;&nbsp; "
      "noir<ul><li>\titem</ul> </body>";
  const std::string bytes = "</head><p>\xC3\xA9t\xC3\xA9 \xE2\x80\x9Cnu\xE2\x80\x9D";
  const struct {
    const char* name;
    std::string text;
    HtmlOutcome outcome;
    std::string expected;
    bool isUtf8 = false;
  } rows[] = {{"a page", page, prepared, " caf\xE9  noir item "},
              {"ANSI", "<!DOCTYPE html>" + bytes, prepared,
               " \xC3\xA9t\xC3\xA9 \xE2\x80\x9Cnu\xE2\x80\x9D"},
              {"taken for ANSI, yet declared UTF-8", "<!DOCTYPE html charset=\"Utf-8\">" + bytes,
               prepared, " \xE9t\xE9 \"nu\""},
              {"repaired when it was read", "<!DOCTYPE html charset=utf-8></head>>\xC3\xA9",
               prepared, " \xC3\xA9", true},
              {"a document type of another kind", "<!doctype x>", notAPage, "<!doctype x>"},
              {"no head", "<!doctype html></head ></head", noHead, "<!doctype html></head ></head"},
              {"the first of two", "<!doctype html></HEAD>></head>", prepared, " "}};
  for (const auto& row : rows) {
    SilentProgress nobody;
    std::string text = row.text;
    EXPECT_EQ(PrepareHtmlText(text, row.isUtf8, false, nobody), row.outcome) << row.name;
    EXPECT_EQ(text, row.expected) << row.name;
  }
}

}  // namespace
}  // namespace quorvel
