#include "unicode/chapter_text.h"

#include <gtest/gtest.h>

#include "support/made_texts.h"

namespace quorvel {
namespace {

TEST(ChapterText, IsThatOfTheBody) {
  const struct {
    const char* name;
    std::string markup;
    std::string text;
    bool ignoreLists = false;
  } rows[] = {
      {"from the body on", "<html><head><title>t</title></head> <BODY class='x'>\n<p>a</p><p>b",
       "a b"},
      {"from the first body on", "t<b>u</b><body>a<body>b", "a b"},
      {"without a body", "<html><head>t</head><p>a</p>", "a"},
      {"of no page at all", "a &amp; b", "a &amp; b"},
      {"tags inside words", "<body><b class='x'>T</b>he ha<EM>rbour</em><a>1</a><br/>x",
       "The harbour 1 x"},
      {"names that begin alike", "a<body>b<iframe>c</iframe>d<section>e", "b c d e"},
      {"comments with mark-up", "<body>a<!-- <p> > --->b<!-- c", "a b"},
      {"elements that end at once", "<body>a<script src='x'/>b<style />c<ul/>d", "a b c d"},
      {"scripts", "<head><script>'<body>'</script></head><body>a<script>b<i></script>c", "a c"},
      {"lists", "<body>a<ol><li>b</li></ol>c", "a // c", true},
      {"a tag without an end", "<body>a<b", "a"},
      {"at the very front", "<b>a", "a"}};
  for (const auto& row : rows) {
    EXPECT_EQ(ChapterText(row.markup, row.ignoreLists), row.text) << row.name;
  }
}

TEST(ChapterText, TakesHostileMarkupInOneGo) {
  for (const char* part : {"<", "<script", "<!--", "<body", "<b>", "<ul/", "</head>"}) {
    EXPECT_LT(ChapterText(Repeated(part, 300000), true).size(), 300000U);
  }
}

}  // namespace
}  // namespace quorvel
