#include "unicode/prepared_text.h"

#include <gtest/gtest.h>

#include <random>

#include "input/document.h"
#include "support/scripted_conversation.h"
#include "util/ansi.h"
#include "util/utf8.h"

namespace quorvel {
namespace {

using namespace std::string_literals;

// The prepared text, or the kind of fault with its reason.
std::string PreparedOrFault(const InputBytes& input, const UnicodeOptions& options, Progress& ui) {
  const Result<PreparedText> prepared = PrepareUnicodeText(input, options, ui);
  if (prepared) return prepared->text;
  EXPECT_EQ(prepared.Error().file, input.Path());
  switch (prepared.Error().kind) {
    case FaultKind::noHead:
      return "no head";
    case FaultKind::stopped:
      return "stopped";
    default:
      EXPECT_EQ(prepared.Error().kind, FaultKind::unknownCharset);
      return "cannot read " + prepared.Error().reason;
  }
}

TEST(PreparedText, IsMade) {
  const std::string page =
      "<!doctype html>\n<meta charset=iso-8859-15></head>\n\n<p>c\xBDur &Scaron;<ul>\nx</ul>--no";
  const struct {
    const char* name;
    const char* file;
    std::string bytes;
    std::string text;
    bool ignoreLists = false;
    int stopAtYield = 0;
  } rows[] = {
      {"lines of all kinds", "a.txt", "\u0153uvre\n\n\ta--b\rc\r\nd--e\n",
       "\u0153uvre / a  b / c / d  e"},
      {"composed across nothing but itself", "a.txt", "e\u0301\n\u0301e", "\u00E9 / \u0301e"},
      {"UTF-16", "a.txt", "\xFF\xFE\x53\x01\n\0z\0"s, "\u0153 / z"},
      {"mark-up in a text", "a.txt", "<b>&eacute;</b>", "<b>&eacute;</b>"},
      {"a declared set in a text", "a.txt", "<meta charset=koi8-r>", "<meta charset=koi8-r>"},
      {"a page", "a.html", page, " c\u0153ur \u0160 x   no"},
      {"without its lists", "a.html", page, " c\u0153ur \u0160 //   no", true},
      {"a page without a document type", "a.htm", "<p>\n&eacute;", "<p> &eacute;"},
      {"no head", "a.htm", "<!DOCTYPE html>", "no head"},
      {"an unknown set", "a.htm", "<meta charset=koi8-r>", "cannot read koi8-r"},
      {"in XML", "a.xml", "<?xml encoding='Shift_JIS'?>", "cannot read shift_jis"},
      {"four bytes a character", "a.txt", "\xFF\xFE\0\0a\0\0\0"s, "cannot read utf-32"},
      {"stopped when read", "a.txt", "abc", "stopped", false, 1},
      {"stopped when composed", "a.txt", "abc", "stopped", false, 3}};
  for (const auto& row : rows) {
    ScriptedConversation ui;
    ui.stopAtYield = row.stopAtYield;
    EXPECT_EQ(PreparedOrFault({row.file, row.bytes}, {row.ignoreLists}, ui), row.text) << row.name;
  }
  SilentProgress nobody;
  EXPECT_EQ(PrepareUnicodeText({"a.txt", "\xEF\xBB\xBF\xE9\xE9"}, {}, nobody)->replaced, 2);
}

// A file with only characters of Windows-1252 and with CR LF line ends has the same text in both
// readings.
TEST(PreparedText, IsThatOfWindows1252) {
  const std::vector<std::string> parts = {
      "harbour",  "caf\xE9", "\xA0",     "\x93o\x94", "\x85",   "\x8A\x9E",
      " ",        "  ",      "\t",       "-",         "--",     "\r\n",
      "\r\n\r\n", "\r",      "<p>",      "</p>",      "<!--",   "-->",
      "<ul>",     "</ul>",   "<script>", "</script>", "<",      ">",
      "&eacute;", "&nbsp;",  "&#160;",   "&amp;",     "&quot;", "<!DOCTYPE html>",
      "</head>",  "\xB5",    "7"};
  std::mt19937 random(18);
  int pages = 0;
  for (int i = 0; i < 6000; ++i) {
    std::string bytes;
    for (auto left = random() % 60; left > 0; --left) bytes += parts[random() % parts.size()];
    const std::string path = i % 2 == 0 ? "a.txt" : "a.htm";
    const bool ignoreLists = i % 4 == 1;
    SilentProgress nobody;
    const auto text = ReadInputFile(InputBytes(path, bytes), false, nobody);
    const auto document =
        MakeDocument({path, {}, {}}, {.ignoreLists = ignoreLists}, *text, nobody, 0);
    const std::string utf8 = EncodeUtf8(DecodeAnsi(bytes));
    const std::string expected = document ? EncodeUtf8((*document)->documentText) : "no head";
    EXPECT_EQ(PreparedOrFault({path, utf8}, {ignoreLists}, nobody), expected) << bytes;
    pages += static_cast<int>(i % 2 == 1 && document && bytes.find("</head>") < bytes.size());
  }
  EXPECT_GT(pages, 500);
}

}  // namespace
}  // namespace quorvel
