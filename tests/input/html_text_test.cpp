#include "input/html_text.h"

#include <gtest/gtest.h>

#include "input/document.h"
#include "input/entities.h"
#include "naive/naive_html.h"
#include "support/made_texts.h"
#include "support/scripted_conversation.h"
#include "util/ansi.h"

namespace quorvel {
namespace {

std::string Stripped(std::string text) {
  StripTags(text);
  return text;
}

std::string StrippedOfLists(std::string text, bool markLists) {
  StripTagsAndLists(text, markLists);
  return text;
}

std::string Decoded(std::string text) {
  DecodeEntities(text);
  return text;
}

TEST(HtmlText, HasItsOddities) {
  const char* rows[][3] = {
      {"a prefix is enough", "<p>a<stylesheet>b</styles>c", " a c"},
      {"other elements do not close it", "<p>a<script><style></style>b</script>c", " a c"},
      {"a list of the other kind is not counted", "<p>a<ul>b<ol>c</ul>d</ol>e", " a //  d e"},
      {"one of the same kind is", "<p>a<ul>b<ulink>c</ul>d</ulx>e", " a //  e"},
      {"a script in a list hides no marks", "<p>a<ul><script>'</ul>'</script>b", " a //  ' b"},
      {"a lone & hides the next entity", ">R&D, &eacute;t&eacute;", " R&D, &eacute;t\xE9"},
      {"a decoded & begins no candidate", ">&amp;eacute;&amp;amp;", " &eacute;&amp;"},
  };
  for (const auto& [name, text, expected] : rows) {
    EXPECT_EQ(Decoded(StrippedOfLists(text, true)), expected) << name;
  }
  EXPECT_EQ(Decoded(naive::ENTITY_TABLE), naive::DecodeEntities(naive::ENTITY_TABLE));
}

TEST(HtmlText, HostileTextsTakeLinearTime) {
  constexpr int MANY = 1000000;
  EXPECT_EQ(Stripped(Repeated("<", MANY)), "");
  EXPECT_EQ(Stripped("<p>" + Repeated("<script", MANY)), " ");
  EXPECT_EQ(StrippedOfLists(Repeated("<ul>", MANY) + Repeated("</ul>", MANY), true), " //  ");
  EXPECT_EQ(StrippedOfLists(Repeated("<ul></ul", MANY), true), Repeated(" // ", MANY));
  EXPECT_EQ(Decoded(Repeated("&", MANY)), Repeated("&", MANY));
  EXPECT_EQ(Decoded(Repeated("&eacute;&no;", MANY)), Repeated("\xE9&no;", MANY));
}

TEST(HtmlText, BodyAndCharset) {
  const struct {
    const char* page;
    bool isUtf8;
    std::optional<std::size_t> body;
  } rows[] = {{"charset=utf-8</head>", true, 20},
              {"</HeAd></head> Charset=UTF-8859", true, 7},
              {"CHARSET=\"Utf-8\"", true, {}},
              {"charset='utf-8' charset=\"utf-8 charset = utf-8 charset=utf8</head >", false, {}}};
  for (const auto& [page, declared, body] : rows) {
    bool isUtf8 = false;
    EXPECT_EQ(FindHtmlBody(page, isUtf8), body) << page;
    EXPECT_EQ(isUtf8, declared) << page;
  }
}

TEST(HtmlText, MakesDocumentsOfPages) {
  const std::string page =
      "<!doctype HTML>\r\n<title>Lost</title></Head>\r\n\r\n<body>caf&eacute;&nbsp; noir"
      "<ul><li>\titem</ul>\r\n</body>";
  const std::string bareBytes =
      "<!DOCTYPE html><meta charset=\"Utf-8\"></head><p>\xC3\xA9t\xC3\xA9 "
      "\xE2\x80\x9Cnu\xE2\x80\x9D &copy;";
  const std::string untyped = "<html>\r\n <b>caf&eacute;</b>\tnoir";
  const std::string textFile = "<!doctype html>\r\n</head><p>caf&eacute;";
  const struct {
    const char* name;
    const char* file;
    std::string bytes, text;
    bool ignoreLists = false;
  } rows[] = {{"a page", "a.html", page, " caf\xE9  noir item "},
              {"without its lists", "a.HTM", page, " caf\xE9  noir // ", true},
              {"chosen as ANSI, yet declared UTF-8", "a.html", bareBytes, " \xE9t\xE9 \"nu\" \xA9"},
              {"no document type", "a.html", untyped, "<html> <b>caf&eacute;</b> noir", true},
              {"a page by its name only", "a.htm.txt", page, " caf\xE9  noir item "},
              {"a text file", "a.txt", textFile, "<!doctype html> / </head><p>caf&eacute;", true}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    ScriptedConversation ui;
    const Result<std::string> text = ReadInputFile(InputBytes(row.file, row.bytes), false, ui);
    const auto document = MakeDocument({row.file, {}, {}}, {false, row.ignoreLists}, *text, ui);
    EXPECT_EQ((*document)->ansiText, row.text);
    EXPECT_EQ((*document)->documentText, DecodeAnsi(row.text));
    EXPECT_EQ(ui.output, "Reading file ...\r\nCompacting spaces ...\r\nProcessing file ...\r\n");
  }
}

}  // namespace
}  // namespace quorvel
