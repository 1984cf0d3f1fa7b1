#include "input/html_text.h"

#include <gtest/gtest.h>

#include <random>
#include <utility>
#include <vector>

#include "input/entities.h"
#include "input/skip_spans.h"
#include "naive/naive_html.h"
#include "run/run_driver.h"
#include "support/scripted_interface.h"
#include "support/test_folder.h"

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

std::string Repeated(std::string_view part, int times) {
  std::string text;
  for (; times > 0; --times) text += part;
  return text;
}

TEST(HtmlText, Tags) {
  const struct {
    const char* name;
    std::string text, expected;
  } rows[] = {
      {"empty", "", ""},
      {"no tag at all", "plain text", ""},
      {"a blank for every tag", "lost<body>a<b>c</b>d", " a c d"},
      {"a lone > is a tag's end too", "<p>a > b >> c", " a   b    c"},
      {"a second < changes nothing", "<p>a < b < c> d", " a   d"},
      {"an unclosed < drops the rest", "<p>a <p b", " a "},
      {"in a comment too", "<p>a<!-- <b> c -->d", " a  c -- d"},
      {"a script", "<p>a<script src=x>if (a > b)</script>c", " a c"},
      {"capitals", "<p>a<SCRIPT>b</Script>c<NoScript>d</noSCRIPT>e", " a c e"},
      {"attributes of a closing tag", "<p>a<style>b</style x>c", " a c"},
      {"the > behind a closed element brings copying back", "<p>a<style>b</style c>d", " a d"},
      {"a prefix is enough", "<p>a<stylesheet>b</styles>c", " a c"},
      {"other elements do not close it", "<p>a<script><style></style>b</script>c", " a c"},
      {"a < in front of the closing tag", "<p>a<script>b<</script>c", " a c"},
      {"unclosed", "<p>a<noscript>b</script>c", " a"},
      {"closed twice", "<p>a<script>b</script></script>c", " a  c"},
      {"a closing tag alone", "<p>a</script>b", " a b"},
      {"one directly behind another", "<p>a<script></script<style></style>b", " a b"},
      {"cut names at the end", "<p>a<scrip", " a"},
      {"a cut closing tag", "<p>a<script></scrip", " a"},
      {"zero bytes and high bytes", std::string("<\xD3L>\0\xE9>", 7), std::string(" \0\xE9 ", 4)},
      {"lists stay", "<ul><li>a</ul>b", "  a b"},
  };
  for (const auto& [name, text, expected] : rows) {
    EXPECT_EQ(Stripped(text), expected) << name;
    EXPECT_EQ(naive::StripTags(text), expected) << name;
  }
}

TEST(HtmlText, Lists) {
  const struct {
    const char* name;
    std::string text, expected;
  } rows[] = {
      {"a list", "<p>a<ul><li>b</li></ul>c", " a //  c"},
      {"capitals", "<p>a<OL><LI>b</Ol>c", " a //  c"},
      {"nested, of one kind", "<p>a<ul>b<ul>c</ul>d</ul>e", " a //  e"},
      {"the other kind is not counted", "<p>a<ul>b<ol>c</ul>d</ol>e", " a //  d e"},
      {"a list in a script", "<p>a<script><ul></script>b", " a b"},
      {"a script in a list does not hide its marks", "<p>a<ul><script>'</ul>'</script>b",
       " a //  ' b"},
      {"names are prefixes, outside, inside and at the end", "<p>a<ulink>b<ulx>c</ulink>d</ulx>e",
       " a //  e"},
      {"unclosed: no mark", "<p>a<ul>b<ul>c</ul>d", " a"},
      {"before any tag", "a<ol></ol>b", " //  b"},
      {"without a > behind it", "<p>a<ul>b</ul c<ol>d</ol>e", " a //  //  e"},
      {"a closing tag alone", "<p>a</ul>b", " a b"},
      {"only marks", "<ul</ul<ul</ul", " //  // "},
      {"cut", "<p>a<ul></u", " a"},
  };
  for (const auto& [name, text, expected] : rows) {
    EXPECT_EQ(StrippedOfLists(text, true), expected) << name;
    EXPECT_EQ(naive::StripTagsAndLists(text, true), expected) << name;
  }
  EXPECT_EQ(StrippedOfLists("<p>a<ul><li>b</ul>c", false), " a c");
}

TEST(HtmlText, Entities) {
  const struct {
    const char* name;
    std::string text, expected;
  } rows[] = {
      {"each case is its own", "&eacute;&Eacute;&EACUTE;", "\xE9\xC9&EACUTE;"},
      {"signs", "&copy;&amp;&quot;&#8212;", "\xA9&\"\x97"},
      {"blanks", "a&nbsp;b&#160;c", "a b c"},
      {"all others stay", "&euro;&#233;&#x41;&lt;&;", "&euro;&#233;&#x41;&lt;&;"},
      {"a decoded & begins no candidate", "&amp;eacute;&amp;amp;", "&eacute;&amp;"},
      {"a lone & hides the next entity", "R&D, &eacute;t&eacute;", "R&D, &eacute;t\xE9"},
      {"no ; any more", "&yuml;&yuml", "\xFF&yuml"},
      {"two neighbours are no entry", "& &nbsp;&nbsp;", "& &nbsp; "},
  };
  for (const auto& [name, text, expected] : rows) {
    EXPECT_EQ(Decoded(text), expected) << name;
    EXPECT_EQ(naive::DecodeEntities(text), expected) << name;
  }
}

TEST(HtmlText, SameAsTheNaiveForm) {
  const std::vector<std::string> parts = {
      "<",          ">",         "/",       "<ul",      "</ul>",  "<OL>",    "</ol",
      "<script",    "</script",  "<Style>", "</STYLE>", "<!--",   "ul",      " word ",
      "<noscript>", "noscript>", "</nosc",  "&",        ";",      "&amp;",   "&eacute;",
      "&nbsp;",     "eth;",      "&Eth;",   "#160",     "&quot;", "&#8212;", "\xE9"};
  std::mt19937 random(20261121);
  for (int round = 0; round < 60000; ++round) {
    std::string text;
    for (std::size_t left = random() % 24; left > 0; --left) text += parts[random() % parts.size()];
    const std::string shown = testing::PrintToString(text);
    ASSERT_EQ(Stripped(text), naive::StripTags(text)) << shown;
    ASSERT_EQ(StrippedOfLists(text, true), naive::StripTagsAndLists(text, true)) << shown;
    ASSERT_EQ(StrippedOfLists(text, false), naive::StripTagsAndLists(text, false)) << shown;
    ASSERT_EQ(Decoded(text), naive::DecodeEntities(text)) << shown;
  }
}

// Whoever looks ahead from each mark anew takes hours for these.
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
    std::string page;
    bool isUtf8;
    std::optional<std::size_t> body;
  } rows[] = {
      {"charset=utf-8</head>", true, 20},
      {"</HeAd></head> Charset=UTF-8859", true, 7},
      {"CHARSET=\"Utf-8\"", true, std::nullopt},
      {"charset='utf-8' charset=\"utf-8 charset = utf-8 charset=utf8</head ></hea", false,
       std::nullopt},
  };
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
  const struct {
    const char* extension;
    std::string pairs;
    bool isHtml;
  } rows[] = {
      {"xml", "<?xml ?> <!-- --> < > ", false},
      {"xhtml", "& ; <script /script> <style /style> <noscript /noscript> <!-- --> < > ", true},
      {"txt", "", false},
      {"xmlx", "", false},
  };
  SkipSpans spans;
  for (const auto& [extension, pairs, isHtml] : rows) {
    SetSkipSpans(extension, spans);
    std::string shown;
    for (const auto& [start, end] : spans.pairs) {
      shown.append(start).append(" ").append(end).append(" ");
    }
    EXPECT_EQ(shown, pairs) << extension;
    EXPECT_EQ(spans.inputIsHtml, isHtml) << extension;
  }
}

TEST(HtmlText, RunsOnPages) {
  const std::string page =
      "<!doctype HTML>\r\n<title>Lost</title></Head>\r\n\r\n<body>caf&eacute;&nbsp; noir"
      "<ul><li>\titem</ul>\r\n</body>";
  const std::string bareBytes =
      "<!DOCTYPE html><meta charset=\"Utf-8\"></head><p>\xC3\xA9t\xC3\xA9 "
      "\xE2\x80\x9Cnu\xE2\x80\x9D &copy;";
  const struct {
    const char* name;
    const char* file;
    std::string bytes;
    bool ignoreLists;
    std::u16string text;
    std::size_t skipSpans;
  } rows[] = {
      {"a page", "a.html", page, false, u" caf\u00E9  noir item ", 6},
      {"without its lists", "a.HTM", page, true, u" caf\u00E9  noir // ", 6},
      {"chosen as ANSI, yet declared UTF-8", "a.html", bareBytes, false,
       u" \u00E9t\u00E9 \"nu\" \u00A9", 6},
      {"no document type", "a.html", "<html>\r\n <b>caf&eacute;</b>\tnoir", true,
       u"<html> <b>caf&eacute;</b> noir", 6},
      {"a document type of something else", "a.htm", "<!DOCTYPE svg></head><p>text", false,
       u"<!DOCTYPE svg></head><p>text", 6},
      {"a page by its name, not its extension", "a.htm.txt", page, false, u" caf\u00E9  noir item ",
       0},
      {"nothing behind the head", "a.html", "<!doctype html></head>", false, u"", 6},
      {"a text file", "a.txt", "<!doctype html>\r\n</head><p>caf&eacute;", true,
       u"<!doctype html> / </head><p>caf&eacute;", 0},
  };
  for (const auto& row : rows) {
    const TestFolder folder;
    RunState state;
    state.settings.inputFile = folder.Write(row.file, row.bytes);
    state.settings.outputFile = folder.Path("out.txt");
    state.settings.ignoreLists = row.ignoreLists;
    ScriptedInterface ui;
    ui.answers = {Answer::no};  // to "UTF-8 or ANSI file?"
    const RunOutcome outcome = RunConcordance(state, ui);
    EXPECT_EQ(outcome, row.text.empty() ? RunOutcome::nothingFound : RunOutcome::done) << row.name;
    EXPECT_EQ(state.documentText, row.text) << row.name;
    EXPECT_EQ(state.skipSpans.pairs.size(), row.skipSpans) << row.name;
    ASSERT_GE(ui.appends.size(), 4) << row.name;
    ui.appends.resize(4);
    const std::vector<std::string> phases = {"Reading file ...\r\n", "Compacting spaces ...\r\n",
                                             "Processing file ...\r\n", "Sorting ...\r\n"};
    EXPECT_EQ(ui.appends, phases) << row.name;
  }
}

TEST(HtmlText, PageWithoutHead) {
  const TestFolder folder;
  RunState state;
  state.settings.inputFile = folder.Write("a.html", "<!DOCTYPE html><p>text</p></head >");
  state.settings.outputFile = folder.Path("out.txt");
  ScriptedInterface ui;
  EXPECT_EQ(RunConcordance(state, ui), RunOutcome::refused);
  ASSERT_EQ(ui.questions.size(), 1);
  EXPECT_EQ(ui.questions[0].text, "This HTML file does not contain a HEAD section.");
  EXPECT_EQ(ui.questions[0].title, "Error");
  EXPECT_EQ(ui.appends, std::vector<std::string>{"Reading file ...\r\n"});
  EXPECT_TRUE(state.table.entries.empty());
  EXPECT_EQ(folder.Count(), 1) << "no concordance is written";
}

}  // namespace
}  // namespace quorvel
