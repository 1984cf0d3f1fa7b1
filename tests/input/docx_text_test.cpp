#include "input/docx_text.h"

#include <gtest/gtest.h>

#include "naive/places.h"
#include "support/made_texts.h"
#include "support/scripted_conversation.h"

namespace quorvel {

TEST(DocxText, ReadsRuns) {
  // "[" stands for the start of a run and "]" for its end.
  const char* rows[][3] = {
      {"a word in two runs", "<w:p>[Hel]</w:r><w:r>[lo]</w:p>", "Hello"},
      {"end of paragraph", "<w:p>[Hel]</w:p><w:p>[lo]</w:p>", "Hel lo"},
      {"line break, in this form only", "[a]<w:br/>[b]<w:br />[c]<w:br w:x=\"\"/>[d]", "a bcd"},
      {"a break before the first run", "<w:p/></w:p><w:br/>[a]", "a"},
      {"blanks only", "[a]</w:p>[]</w:p>[   ][b]", "a  b"},
      {"one with attributes reaches to the next end", "<w:t x=\"\"/></w:r>[a]", "</w:r><w:t>a"},
      {"the lowest byte that is repaired", "[\xC2\xA9]", "\xA9"},
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
  const std::string xml =
      "<x:d xmlns:x='http://purl.oclc.org/ooxml/wordprocessingml/main'><w:t>0</w:t>"
      "<x:t>a</x:t></x:r><x:r><x:tab/><x:t xml:space=\"preserve\">b</x:t><x:br/><x:t>c</x:t>"
      "<w:br/></x:p><x:tbl><x:t>d\u0142</x:t>";
  SilentProgress nobody;
  DocumentRuns runs(xml);
  EXPECT_TRUE(runs.Read(nobody));
  EXPECT_EQ(runs.Text(), "ab c d\u0142");
  EXPECT_EQ(runs.LostCharacters(), 1);
}

TEST(DocxText, GoesOnAfterAStopAndShowsHowFarItIs) {
  for (const std::size_t length : {1000000U, 1000001U}) {
    const bool isLong = length == 1000001;
    const std::string xml = Repeated("<w:t>word </w:t>", 62500) + std::string(isLong ? 1 : 0, ' ');
    ScriptedConversation ui;
    ui.stopAtYield = 4;
    DocumentRuns runs(xml);
    EXPECT_FALSE(runs.Read(ui));
    EXPECT_EQ(runs.Text().size(), std::size_t{3} * 65536 / 16 * 5);
    EXPECT_EQ(ui.bars.size(), isLong ? 4U : 0U);
    ui.ClearStop();
    EXPECT_TRUE(runs.Read(ui));
    EXPECT_EQ(runs.Text().size(), 62500U * 5);
    EXPECT_TRUE(isLong ? ui.bars.at(3) == ProgressCaption(8) && ui.bars.back().empty()
                       : ui.bars.empty());
  }
}

// Documents written by two programs, from the source beside each.
TEST(DocxText, OfOtherProgramsIsRead) {
  for (const char* name : {"harbour_log", "market_day"}) {
    const std::string path = QUORVEL_TEST_DATA "/docx/" + std::string(name);
    SilentProgress nobody;
    EXPECT_EQ(TextOfIntactDocument(*ReadInput(path + ".docx", nobody)),
              ReadInput(path + ".txt", nobody)->View());
  }
}

}  // namespace quorvel
