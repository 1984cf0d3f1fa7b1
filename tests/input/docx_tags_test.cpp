#include "input/docx_tags.h"

#include <gtest/gtest.h>

namespace quorvel {

TEST(DocxTags, AreFoundWhole) {
  constexpr std::size_t NONE = std::string_view::npos;
  const std::tuple<const char*, const char*, std::size_t, std::size_t> rows[] = {
      {"<t", "<t", 0, 0},
      {"<w:t", "<w:x<w:t>", 0, 4},
      {"<w:t", "<w:t<w:t", 1, 4},
      {"<w:t", "<w:t <w:", 1, NONE},
      {"</w:t>", "<</w:</w:t>", 0, 5},
      {"<w:br/>", "<w:br/", 0, NONE},
      {"<w:br/>", "<w:b<w:br/><w:br/>", 0, 4}};
  for (const auto& [tag, xml, from, expected] : rows) {
    EXPECT_EQ(Tag(tag).FindIn(xml, from), expected) << tag << " in " << xml;
  }
}

TEST(DocxTags, HaveThePrefixThatTheFirstElementDeclares) {
  const std::string name = "=\"http://schemas.openxmlformats.org/wordprocessingml/2006/main\"";
  const std::string strict = "\t= 'http://purl.oclc.org/ooxml/wordprocessingml/main'";
  const std::tuple<const char*, std::string, const char*> rows[] = {
      {"any other", "<?xml version='1.0'?><!-- <w:x> --><x:document a=\">\" xmlns:x" + name + ">",
       "x:"},
      {"the strict kind", "<!DOCTYPE x>\n<doc:document\n\txmlns:doc" + strict + "\n>", "doc:"},
      {"none", "<document xmlns" + name + ">", ""},
      {"the usual one of several", "<x:d xmlns:x" + name + " xmlns:w" + name + " xmlns" + name,
       "w:"},
      {"else the first of several", "<y:d xmlns:y" + name + "\rxmlns" + name + " xmlns:x" + name,
       "y:"},
      {"or none, if that is first", "<d xmlns" + name + " xmlns:x" + name, ""},
      {"not declared", "<w:document xmlns:x='' z" + name + " yxmlns:y" + name + ">", "w:"},
      {"declared with no name", "<x:d xmlns:" + name + " xmlnsx:x" + name + ">", "w:"},
      {"declared elsewhere", "<x:d><x:e xmlns:x" + name + ">", "w:"},
      {"short comments", "<!--><y:d xmlns:y" + name + "--><!><x:d xmlns:x" + name + ">", "x:"},
      {"a value without quotes", "<x:d a=11 xmlns:x" + name + ">", "w:"},
      {"no end of the value", "<x:d xmlns:x=\"x", "w:"},
      {"no begin of it", "<x:d xmlns:x=", "w:"},
  };
  for (const auto& [what, xml, prefix] : rows) EXPECT_EQ(WordPrefixOf(xml), prefix) << what;
}

}  // namespace quorvel
