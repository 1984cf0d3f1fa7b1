#include "unicode/packed_text.h"

#include <gtest/gtest.h>

#include <fstream>
#include <random>

#include "input/document.h"
#include "input/docx_text.h"
#include "naive/places.h"
#include "support/made_texts.h"
#include "support/scripted_conversation.h"
#include "util/ansi.h"
#include "util/utf8.h"

namespace quorvel {
namespace {

constexpr const char* WORD_START =
    "<w:document xmlns:w='http://schemas.openxmlformats.org/wordprocessingml/2006/main' "
    "xmlns:mc='http://schemas.openxmlformats.org/markup-compatibility/2006'>";
constexpr const char* OPEN_START =
    "<office:text xmlns:office='urn:oasis:names:tc:opendocument:xmlns:office:1.0' "
    "xmlns:text='urn:oasis:names:tc:opendocument:xmlns:text:1.0' "
    "xmlns:draw='urn:oasis:names:tc:opendocument:xmlns:drawing:1.0' "
    "xmlns:svg='urn:oasis:names:tc:opendocument:xmlns:svg-compatible:1.0'>";

UnpackedParts PartsOf(PackedKind kind, std::vector<std::string> parts) {
  UnpackedParts unpacked{.kind = kind, .parts = std::move(parts)};
  for (const std::string& part : unpacked.parts) unpacked.length += part.size();
  return unpacked;
}

// Followed by "!" if a part is damaged.
std::string TextOf(const UnpackedParts& parts, const UnicodeOptions& options = {}) {
  SilentProgress nobody;
  PackedText text(parts, options);
  EXPECT_TRUE(text.Read(nobody));
  return text.Take().text + (text.IsDamaged() ? "!" : "");
}

TEST(PackedText, OfWordDocuments) {
  // "[" stands for the start of a run and "]" for its end.
  const char* rows[][3] = {
      {"a word in two runs", "<w:p>[Al][pha]</w:p><w:p>[Be]</w:p><w:p/>", "Alpha Be"},
      {"breaks", "[a]<w:tab/>[b]<w:br w:type='page'/>[c]<w:cr/>[d]<w:ptab/>[e]", "a b c d e"},
      {"tab stops", "<w:p>[a]<w:pPr><w:tabs><w:tab/></w:tabs></w:pPr>[b]</w:p>", "ab"},
      {"hyphens", "[co]<w:noBreakHyphen/>[op] [har]<w:softHyphen/>[bour]", "co-opharbour"},
      {"text outside runs", "a<w:p>b[c]<w:instrText>HYPERLINK</w:instrText></w:p>", "c"},
      {"deleted and moved",
       "[a]<w:del>[b]<w:x>c</w:x></w:del><w:moveFrom>[d]</w:moveFrom><w:moveTo>[e]</w:moveTo>"
       "<w:ins>[f]</w:ins>",
       "aef"},
      {"a deleted end of paragraph",
       "<w:p><w:pPr><w:rPr><w:del/></w:rPr></w:pPr>[Al]</w:p><w:p>[pha]</w:p><w:p>[b]</w:p>",
       "Alpha b"},
      {"a text box, once",
       "<w:p>[a]<mc:AlternateContent><mc:Choice><w:p>[b]</w:p><w:p>[c]</w:p></mc:Choice>"
       "<mc:Fallback><w:p>[b]</w:p></mc:Fallback></mc:AlternateContent>[d]</w:p>",
       "a b c d"},
      {"one in another",
       "<mc:AlternateContent><mc:Choice>[a]<mc:AlternateContent/></mc:Choice>"
       "<mc:Fallback>[b]</mc:Fallback></mc:AlternateContent>[c]",
       "ac"},
      {"its other form alone",
       "<mc:AlternateContent><mc:Fallback>[a]</mc:Fallback></mc:AlternateContent>", "a"},
      {"other namespaces", "<t>x</t><n:t xmlns:n='urn:n'>x</n:t>[a]", "a"},
      {"the strict one by another prefix",
       "<x:t xmlns:x='http://purl.oclc.org/ooxml/wordprocessingml/main'>a</x:t>", "a"},
      {"all letters as they are", "[\u0153uvre--\u201C&#x142;&amp;lt;\u201D e\u0301]",
       "\u0153uvre  \u201C\u0142&lt;\u201D \u00E9"},
      {"damage", "<w:p>[a b]</w:q>[c]", "a b!"}};
  for (const auto& [name, marked, expected] : rows) {
    const std::string starts = naive::Replace(std::string(marked), "[", "<w:t>");
    const std::string body = naive::Replace(starts, "]", "</w:t>");
    EXPECT_EQ(TextOf(PartsOf(PackedKind::docx, {WORD_START + body + "</w:document>"})), expected)
        << name;
  }
}

// A document with only characters of Windows-1252, plain punctuation and no special breaks has the
// same text in both readings.
TEST(PackedText, IsThatOfWindows1252) {
  const std::vector<std::string> runs = {"har",   "bour", " ",      "caf\xE9", "--",
                                         "&amp;", "\xA0", "\xDF 7", "<w:br/>"};
  std::mt19937 random(18);
  for (int i = 0; i < 500; ++i) {
    std::string xml = WORD_START;
    for (auto left = 1 + random() % 9; left > 0; --left) {
      xml += "<w:p>";
      for (auto more = random() % 6; more > 0; --more) {
        const std::string& run = runs[random() % runs.size()];
        xml += run.starts_with('<') ? run : "<w:t>" + EncodeUtf8(DecodeAnsi(run)) + "</w:t>";
      }
      xml += "</w:p>";
    }
    xml += "</w:document>";
    SilentProgress nobody;
    DocumentRuns first(xml);
    EXPECT_TRUE(first.Read(nobody));
    const auto document =
        MakeDocument({"a.docx", {}, {}}, {.isUtf8 = true}, first.Text(), nobody, 0);
    EXPECT_EQ(TextOf(PartsOf(PackedKind::docx, {xml})), EncodeUtf8((*document)->documentText))
        << xml;
  }
}

TEST(PackedText, OfOpenDocuments) {
  const char* rows[][3] = {
      {"paragraphs", "x<text:h>Al<text:span>pha</text:span></text:h> <text:p>b</text:p>y",
       "Alpha b"},
      {"breaks", "<text:p>a<text:tab/>b<text:s text:c='3'/>c<text:line-break/>d</text:p>",
       "a b c d"},
      {"hyphens", "<text:p>co\u2011op har\u00ADbour</text:p>", "co-op harbour"},
      {"deleted",
       "<text:tracked-changes><text:p>x</text:p></text:tracked-changes><text:p>a</text:p>", "a"},
      {"comments, pictures and what is said of them",
       "<text:p>a<office:annotation><text:p>x</text:p></office:annotation><draw:frame><draw:image>"
       "<office:binary-data>eHg=</office:binary-data></draw:image><draw:object><text:p>x</text:p>"
       "</draw:object><svg:title>x</svg:title><svg:desc>x</svg:desc></draw:frame>b</text:p>",
       "ab"},
      {"a text box", "<text:p>a<draw:text-box><text:p>b</text:p></draw:text-box>c</text:p>",
       "a b c"},
      {"a note",
       "<text:p>a<text:note><text:note-citation>1</text:note-citation><text:note-body>"
       "<text:p>n</text:p><text:p>o</text:p></text:note-body></text:note>b</text:p><text:p>c</"
       "text:p>",
       "ab c | n o"}};
  for (const auto& [name, body, expected] : rows) {
    const auto parts =
        PartsOf(PackedKind::odt, {OPEN_START + std::string(body) + "</office:text>"});
    std::string text(expected);
    const std::size_t notes = std::min(text.find(" | "), text.size());
    EXPECT_EQ(TextOf(parts), text.substr(0, notes)) << name;
    if (notes < text.size()) text.erase(notes, 2);
    EXPECT_EQ(TextOf(parts, {.notes = true}), text) << name;
  }
}

TEST(PackedText, OfBooks) {
  const std::string first =
      "<?xml encoding='iso-8859-15'?><head/><body><p>c\xBDur&nbsp;&Lstrok;--x</p>";
  const std::vector<std::string> chapters = {first, "<body><img/>", "",
                                             "<body><ul>list</ul>e\u0301\xE9\u0301</body>",
                                             "<meta charset=koi8-r><body>x"};
  EXPECT_EQ(TextOf(PartsOf(PackedKind::epub, chapters)),
            "c\u0153ur \u0141  x list \u00E9\uFFFD\u0301!");
  EXPECT_EQ(
      TextOf(PartsOf(PackedKind::epub, {first, "<body><ul>list</ul>a"}), {.ignoreLists = true}),
      "c\u0153ur \u0141  x // a");
  SilentProgress nobody;
  const UnpackedParts parts = PartsOf(PackedKind::epub, chapters);
  PackedText text(parts, {});
  EXPECT_TRUE(text.Read(nobody));
  EXPECT_EQ(text.Take().replaced, 1);
}

TEST(PackedText, ReadsPartsOneBehindTheOther) {
  const std::string part =
      std::string(WORD_START) + "<w:p><mc:Fallback><w:t>a</w:t></mc:Fallback></w:p></w:document>";
  const std::string damaged =
      std::string(WORD_START) + "<w:p><mc:AlternateContent><mc:Choice><w:del><w:t>b</w:t>";
  EXPECT_EQ(TextOf(PartsOf(PackedKind::docx, {part, damaged, part, ""})), "a a!");
}

TEST(PackedText, GoesOnAfterAStopAndShowsHowFarItIs) {
  for (const int words : {58000, 80000}) {
    const std::string runs = Repeated("<w:t>word </w:t>", words);
    const UnpackedParts parts = PartsOf(PackedKind::docx, {WORD_START + runs + "</w:document>"});
    ScriptedConversation ui;
    ui.stopAtYield = 4;
    PackedText text(parts, {});
    EXPECT_FALSE(text.Read(ui));
    EXPECT_EQ(ui.yields, 4);
    ui.ClearStop();
    EXPECT_TRUE(text.Read(ui));
    EXPECT_EQ(text.Take().text, Repeated("word ", words));
    EXPECT_EQ(ui.bars.size() > 2, words == 80000);
    EXPECT_TRUE(ui.bars.empty() || ui.bars.back().empty());
    EXPECT_LE(std::ranges::count(ui.bars, ProgressCaption(0)), 1) << "begins anew after the stop";
  }
}

// Each document with its notes, and the book without lists.
TEST(PackedText, OfOtherPrograms) {
  const auto bytesOf = [](const std::string& name) {
    std::ifstream file(QUORVEL_TEST_DATA "/packed/" + name, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(file), {});
  };
  for (const std::string name : {"night_ferry.odt", "night_ferry.docx", "harbour_tales.epub"}) {
    const InputBytes input(name, bytesOf(name));
    const UnicodeOptions options = {.ignoreLists = true, .notes = true};
    EXPECT_EQ(TextOfIntactPacked(input, *PackedKindOf(input), options) + "\n",
              bytesOf(name + ".txt"));
  }
}

}  // namespace
}  // namespace quorvel
