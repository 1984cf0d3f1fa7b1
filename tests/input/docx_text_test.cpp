#include "input/docx_text.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "input/document.h"
#include "naive/places.h"
#include "support/made_texts.h"
#include "support/scripted_conversation.h"
#include "support/zip_builder.h"

namespace quorvel {
namespace {

TEST(DocxText, ReadsRuns) {
  // With "[" for the start of a run and "]" for its end.
  const char* rows[][3] = {
      {"a word in two runs", "<w:p>[Hel]</w:r><w:r>[lo]</w:p>", "Hello"},
      {"end of paragraph", "<w:p>[Hel]</w:p><w:p>[lo]</w:p>", "Hel lo"},
      {"line break, in this form only", "[a]<w:br/>[b]<w:br />[c]<w:br w:x=\"\"/>[d]", "a bcd"},
      {"a break before the first run", "<w:p/></w:p><w:br/>[a]", "a"},
      {"blanks only", "[a]</w:p>[]</w:p>[   ][b]", "a  b"},
      {"one with attributes reaches to the next end", "<w:t x=\"\"/></w:r>[a]", "</w:r><w:t>a"},
      {"a start without its end mark", "<w:t ][a]", " a"},
      {"an end without a start ends the walk", "[a]][b]", "a"},
      {"deleted text", "<w:delText>x</w:delText>[a]", "a"},
      {"an escaped entity is decoded twice", "[&gt; &amp;lt; &amp;amp;]", "> < &amp;"},
      {"quotation marks", "[&amp;quot;I&apos;m&quot; &nbsp;]", "\"I'm\" &nbsp;"},
      {"each run is repaired for itself", "[\xE2\x80\xA0\xE2\x80\x99][\xE2\x80\x99\xC3][\xA9]",
       "\xE2\x80\x99'\xC3\xA9"},
  };
  for (const auto& [name, marked, expected] : rows) {
    const std::string starts = naive::Replace(std::string(marked), "[", "<w:t>");
    const std::string xml = naive::Replace(starts, "]", "</w:t>");
    ScriptedConversation ui;
    DocumentRuns runs(xml);
    EXPECT_TRUE(runs.Read(ui));
    EXPECT_EQ(runs.Text(), expected) << name;
    EXPECT_TRUE(ui.bars.empty()) << name;
  }
}

TEST(DocxText, GoesByThePrefixOfTheDocument) {
  const std::string name = "=\"http://schemas.openxmlformats.org/wordprocessingml/2006/main\"";
  const std::string strict = " = 'http://purl.oclc.org/ooxml/wordprocessingml/main'";
  const std::string_view body =
      "@t>a</@t></@r><@r><@tab/><@t xml:space=\"preserve\">b</@t><@br/><@t>c</@t></@p><@t>d</@t>";
  const struct {
    const char* name;
    std::string start;
    const char* prefix;
    const char* expected = "ab c d";
  } rows[] = {
      {"another", "<?xml version='1.0'?><!-- <w:x> --><x:document a=\">\" xmlns:x" + name + ">",
       "x:"},
      {"the strict kind", "<!DOCTYPE x>\n<doc:document\n\txmlns:doc" + strict + "\n>", "doc:"},
      {"none", "<document xmlns" + name + ">", ""},
      {"the usual one beside others", "<x:document xmlns:x" + name + " xmlns:w" + name + ">", "w:"},
      {"not declared", "<w:document xmlns:x='y'>", "w:"},
      {"no XML", "<w:document xmlns:x=", "w:"},
      {"an element of another kind", "<w:document xmlns:x='y' z" + name + ">", "x:", ""},
  };
  for (const auto& [rowName, start, prefix, expected] : rows) {
    const std::string xml = start + "<" + naive::Replace(std::string(body), "@", prefix);
    SilentProgress nobody;
    DocumentRuns runs(xml);
    EXPECT_TRUE(runs.Read(nobody));
    EXPECT_EQ(runs.Text(), expected) << rowName;
  }
}

TEST(DocxText, GoesOnAfterAStopAndShowsHowFarItIs) {
  std::string xml;
  while (xml.size() <= 1000000) xml += "<w:r><w:t>word </w:t></w:r>";
  ScriptedConversation ui;
  ui.stopAtYield = 3;
  DocumentRuns runs(xml);
  EXPECT_FALSE(runs.Read(ui));
  EXPECT_NEAR(static_cast<double>(runs.Text().size()), 2 * 65536.0 / 27 * 5, 10);
  EXPECT_EQ(ui.bars.back(), "[---->" + std::string(35, ' ') + "]");
  ui.ClearStop();
  EXPECT_TRUE(runs.Read(ui));
  EXPECT_EQ(runs.Text().size(), xml.size() / 27 * 5);
  EXPECT_EQ(ui.yields, 16) << "each 65536 characters";
  EXPECT_EQ(ui.bars.front(), "[>" + std::string(40, ' ') + "]");
  EXPECT_EQ(ui.bars.at(ui.bars.size() - 2).substr(0, 35), "[" + std::string(34, '-'));
  EXPECT_EQ(std::count(ui.bars.begin(), ui.bars.end(), ""), 1);
  EXPECT_EQ(ui.bars.back(), "");
}

TEST(DocxText, IsReadInSilenceWhereNothingIsWrong) {
  const std::string xml = "<w:t>" + Repeated("x", 11000000) + "</w:t>";
  const std::string big = ZipArchive({{BODY_ENTRY, xml}});
  EXPECT_EQ(TextOfIntactDocument({"a.docx", big}).size(), 11000000U);
  EXPECT_EQ(TextOfIntactDocument({"a.docx", WithField(big, CENTRAL_RECORD, 16, 1, 4)}), "");
  EXPECT_EQ(TextOfIntactDocument({"a.docx", ""}), "");
}

// As two programs wrote them, from the source that stands beside each.
TEST(DocxText, OfOtherProgramsIsRead) {
  for (const char* name : {"harbour_log", "market_day"}) {
    const std::string path = QUORVEL_TEST_DATA "/docx/" + std::string(name);
    SilentProgress nobody;
    EXPECT_EQ(TextOfIntactDocument(*ReadInput(path + ".docx", nobody)),
              ReadInput(path + ".txt", nobody)->View());
  }
}

TEST(Document, TellsWordDocumentsFromOthers) {
  EXPECT_TRUE(IsWordDocument({"A.DOCX", "PK\x03\x04 56789"}));
  EXPECT_FALSE(IsWordDocument({"a.docx", "PK\x03\x04 5678"}));
  EXPECT_FALSE(IsWordDocument({"a.docx", "PK is no archive"}));
  EXPECT_FALSE(IsWordDocument({"a.txt", "PK\x03\x04 56789"}));
}

}  // namespace
}  // namespace quorvel
