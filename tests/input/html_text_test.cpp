#include "input/html_text.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

#include "input/entities.h"
#include "input/skip_spans.h"
#include "naive/naive_html.h"
#include "support/made_texts.h"
#include "support/test_run.h"
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

TEST(HtmlText, Tags) {
  const std::string rows[][3] = {
      {"a blank for every tag", "lost<body>a<b>c</b>d", " a c d"},
      {"a lone > is a tag's end too", "<p>a > b >> c", " a   b    c"},
      {"a second < changes nothing", "<p>a < b < c> d", " a   d"},
      {"an unclosed < drops the rest", "<p>a <p b", " a "},
      {"the > behind a closed element brings copying back", "<p>a<style>b</style c>d", " a d"},
      {"a prefix is enough", "<p>a<stylesheet>b</styles>c", " a c"},
      {"other elements do not close it", "<p>a<script><style></style>b</script>c", " a c"},
      {"zero bytes and high bytes", {"<\xD3L>\0\xE9>", 7}, {" \0\xE9 ", 4}},
  };
  for (const auto& [name, text, expected] : rows) {
    EXPECT_EQ(Stripped(text), expected) << name;
    EXPECT_EQ(naive::StripTags(text), expected) << name;
  }
}

TEST(HtmlText, Lists) {
  const char* rows[][3] = {
      {"nested, of one kind", "<p>a<ul>b<ul>c</ul>d</ul>e", " a //  e"},
      {"the other kind is not counted", "<p>a<ul>b<ol>c</ul>d</ol>e", " a //  d e"},
      {"a list in a script", "<p>a<script><ul></script>b", " a b"},
      {"a script in a list hides no marks", "<p>a<ul><script>'</ul>'</script>b", " a //  ' b"},
      {"names are prefixes", "<p>a<ulink>b<ulx>c</ulink>d</ulx>e", " a //  e"},
      {"unclosed: no mark", "<p>a<ul>b<ul>c</ul>d", " a"},
  };
  for (const auto& [name, text, expected] : rows) {
    EXPECT_EQ(StrippedOfLists(text, true), expected) << name;
    EXPECT_EQ(naive::StripTagsAndLists(text, true), expected) << name;
  }
  EXPECT_EQ(StrippedOfLists("<p>a<ul><li>b</ul>c", false), " a c");
}

TEST(HtmlText, Entities) {
  const char* rows[][3] = {
      {"each case is its own", "&eacute;&Eacute;&EACUTE;", "\xE9\xC9&EACUTE;"},
      {"signs", "&copy;&amp;&quot;&#8212;&nbsp;&#160;.", "\xA9&\"\x97  ."},
      {"a decoded & begins no candidate", "&amp;eacute;&amp;amp;", "&eacute;&amp;"},
      {"a lone & hides the next entity", "R&D, &eacute;t&eacute;", "R&D, &eacute;t\xE9"},
      {"two neighbours are no entry", "& &nbsp;&nbsp;", "& &nbsp; "},
  };
  for (const auto& [name, text, expected] : rows) {
    EXPECT_EQ(Decoded(text), expected) << name;
    EXPECT_EQ(naive::DecodeEntities(text), expected) << name;
  }
  EXPECT_EQ(Decoded(naive::ENTITY_TABLE), naive::DecodeEntities(naive::ENTITY_TABLE));
}

TEST(HtmlText, SameAsTheNaiveForm) {
  const std::vector<std::string> parts = {
      "<",          ">",         "/",       "<ul",      "</ul>",  "<OL>",    "</ol",
      "<script",    "</script",  "<Style>", "</STYLE>", "<!--",   "ul",      " word ",
      "<noscript>", "noscript>", "</nosc",  "&",        ";",      "&amp;",   "&eacute;",
      "&nbsp;",     "eth;",      "&Eth;",   "#160",     "&quot;", "&#8212;", "\xE9"};
  std::mt19937 random(20261121);
  for (int round = 0; round < 60000; ++round) {
    const std::string text = RandomText(parts, 24, random);
    ASSERT_EQ(Stripped(text), naive::StripTags(text)) << text;
    ASSERT_EQ(StrippedOfLists(text, true), naive::StripTagsAndLists(text, true)) << text;
    ASSERT_EQ(StrippedOfLists(text, false), naive::StripTagsAndLists(text, false)) << text;
    ASSERT_EQ(Decoded(text), naive::DecodeEntities(text)) << text;
  }
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
  bool isUtf8 = true;
  EXPECT_EQ(FindHtmlBody("charset=ansi", isUtf8), std::nullopt);
  EXPECT_TRUE(isUtf8) << "it is never switched off";
}

TEST(HtmlText, SkipSpansByExtension) {
  const std::pair<const char*, std::string> rows[] = {
      {"xml", "<?xml ?> <!-- --> < > "},
      {"xhtml", "& ; <script /script> <style /style> <noscript /noscript> <!-- --> < > "},
      {"xmlx", ""}};
  SkipSpans spans;
  for (const auto& [extension, pairs] : rows) {
    SetSkipSpans(extension, spans);
    std::string shown;
    for (const auto& [start, end] : spans.pairs) {
      shown.append(start).append(" ").append(end).append(" ");
    }
    EXPECT_EQ(shown, pairs) << extension;
    EXPECT_EQ(spans.inputIsHtml, shown.starts_with('&')) << extension;
  }
}

TEST(HtmlText, RunsOnPages) {
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
    std::size_t skipSpans = 6;
    bool ignoreLists = false;
  } rows[] = {
      {"a page", "a.html", page, " caf\xE9  noir item "},
      {"without its lists", "a.HTM", page, " caf\xE9  noir // ", 6, true},
      {"chosen as ANSI, yet declared UTF-8", "a.html", bareBytes, " \xE9t\xE9 \"nu\" \xA9"},
      {"no document type", "a.html", untyped, "<html> <b>caf&eacute;</b> noir", 6, true},
      {"another document type", "a.htm", "<!DOCTYPE svg></head>", "<!DOCTYPE svg></head>"},
      {"a page by its name only", "a.htm.txt", page, " caf\xE9  noir item ", 0},
      {"nothing behind the head", "a.html", "<!doctype html></head>", ""},
      {"a text file", "a.txt", textFile, "<!doctype html> / </head><p>caf&eacute;", 0, true}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    TestRun run(row.bytes, row.file);
    run.settings.ignoreLists = row.ignoreLists;
    run.ui.answers = {Answer::no};  // to "UTF-8 or ANSI file?"
    EXPECT_EQ(run.Go(), row.text.empty() ? RunOutcome::nothingFound : RunOutcome::done);
    EXPECT_EQ(run.state.documentText, DecodeAnsi(row.text));
    EXPECT_EQ(run.state.skipSpans.pairs.size(), row.skipSpans);
    run.ui.appends.resize(4);
    const std::vector<std::string> phases = {"Reading file ...\r\n", "Compacting spaces ...\r\n",
                                             "Processing file ...\r\n", "Sorting ...\r\n"};
    EXPECT_EQ(run.ui.appends, phases);
  }
}

TEST(HtmlText, PageWithoutHead) {
  TestRun run("<!DOCTYPE html><p>text</p></head >", "a.html");
  EXPECT_EQ(run.Go(), RunOutcome::refused);
  EXPECT_EQ(run.ui.Said(), "Error: This HTML file does not contain a HEAD section.\n");
  EXPECT_EQ(run.ui.appends, std::vector<std::string>{"Reading file ...\r\n"});
  EXPECT_TRUE(run.state.table.entries.empty());
  EXPECT_EQ(run.folder.Count(), 1) << "no concordance is written";
}

}  // namespace
}  // namespace quorvel
