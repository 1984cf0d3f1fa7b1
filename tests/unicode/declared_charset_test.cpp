#include "unicode/declared_charset.h"

#include <gtest/gtest.h>

namespace quorvel {
namespace {

using namespace std::string_literals;

TEST(DeclaredCharset, IsFound) {
  const std::pair<const char*, const char*> rows[] = {
      {"<meta charset=UTF-8>", "utf-8"},
      {"<html><META  name=x CharSet = 'Windows-1251' />", "windows-1251"},
      {R"(<meta http-equiv="Content-Type" content="text/html; charset=iso-8859-15">)",
       "iso-8859-15"},
      {R"(<meta name="charset" content="charset=koi8-r;x">)", "koi8-r"},
      {"<?xml version=\"1.0\" encoding='UTF-16'?><meta charset=x>", "utf-16"},
      {"<?xml version=\"1.0\"?><meta charset=x>", "x"},
      {"<meta charset=\"\"><meta charset=big5>", "big5"},
      {"<!-- <meta charset=a> > --><meta charset=b>", "b"},
      {"<!-- <meta charset=a>", ""},
      {"<!--><meta charset=a>--><meta charset=b>", "a"},
      {"<script charset=a></script>", ""},
      {"<title>charset=a</title></HEAD><meta charset=b>", ""},
      {"<body><meta charset=b>", ""},
      {"a << b <<meta charset=c>", "c"},
      {"<meta", ""},
      {"<", ""}};
  for (const auto& [page, name] : rows) EXPECT_EQ(DeclaredCharset(page), name) << page;
}

TEST(DeclaredCharset, DecidesHowATextIsRead) {
  const struct {
    const char* name;
    std::string bytes;
    std::string text;
    std::int64_t replaced = 0;
  } rows[] = {
      {"UTF-8 that is none", "<meta charset=utf-8>\xE9", "<meta charset=utf-8>\xEF\xBF\xBD", 1},
      {"Latin-1 as browsers take it", "<meta charset=latin1>\x93\xC3\xA9",
       "<meta charset=latin1>\xE2\x80\x9C\xC3\x83\xC2\xA9"},
      {"the euro sign", "<?xml encoding=\"ISO-8859-15\"?>\xA4",
       "<?xml encoding=\"ISO-8859-15\"?>\xE2\x82\xAC"},
      {"a mark goes before a name", "\xEF\xBB\xBF<meta charset=latin1>\xC3\xA9",
       "<meta charset=latin1>\xC3\xA9"},
      {"UTF-16 by name alone", "<meta charset=utf-16>\xC3\xA9", "<meta charset=utf-16>\xC3\xA9"},
      {"UTF-16 without a mark", "<\0a\0>\0"s, "<a>"},
      {"the other way", "\0<\0a\0>"s, "<a>"}};
  for (const auto& row : rows) {
    const DecodedMarkup markup = DecodeMarkup(row.bytes);
    EXPECT_EQ(markup.decoded.text, row.text) << row.name;
    EXPECT_EQ(markup.decoded.replaced, row.replaced) << row.name;
  }
}

}  // namespace
}  // namespace quorvel
