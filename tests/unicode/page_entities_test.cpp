#include "unicode/page_entities.h"

#include <gtest/gtest.h>

namespace quorvel {
namespace {

TEST(PageEntities, AreDecoded) {
  const std::pair<const char*, const char*> rows[] = {
      {"Orl&eacute;ans", "Orl\u00E9ans"},
      {"R&D in Orl&eacute;ans", "R&D in Orl\u00E9ans"},
      {"&AElig;&zwnj;&Zcaron;", "\u00C6\u200C\u017D"},
      {"&nGt;|", "\u226B\u20D2|"},
      {"&CounterClockwiseContourIntegral;", "\u2233"},
      {"a&nbsp;b&#160;c&#xA0;d&Tab;e&#10;f&NonBreakingSpace;g&NewLine;h", "a b c d e f g h"},
      {"&#233;&#xE9;&#XE9;&#x1F6A2;&#00233;", "\u00E9\u00E9\u00E9\U0001F6A2\u00E9"},
      {"&#151;&#x80;&#x81;", "\u2014\u20AC\u0081"},
      {"&#0;&#xD800;&#xDFFF;&#x110000;&#99999999999999999999;", "\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD"},
      {"&amp;eacute; &amp;&eacute;", "&eacute; &\u00E9"},
      {"&eacute &#233 &#; &#x; &#2a; &#xg; &#x@; &; &Eacutex; & &&eacute;",
       "&eacute &#233 &#; &#x; &#2a; &#xg; &#x@; &; &Eacutex; & &\u00E9"},
      {"&aVeryLongNameThatHtmlDoesNotKnowAtAll;&", "&aVeryLongNameThatHtmlDoesNotKnowAtAll;&"}};
  for (const auto& [text, decoded] : rows) EXPECT_EQ(DecodeReferences(text), decoded);
}

}  // namespace
}  // namespace quorvel
