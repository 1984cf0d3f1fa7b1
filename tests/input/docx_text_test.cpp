#include "input/docx_text.h"

#include <gtest/gtest.h>

#include "files/file_system.h"
#include "input/document_text.h"
#include "naive/places.h"
#include "support/file_size_limit.h"
#include "support/platform.h"
#include "support/scripted_interface.h"
#include "support/test_folder.h"
#include "support/zip_builder.h"

namespace quorvel {
namespace {

namespace fs = std::filesystem;

constexpr const char* BODY = "word/document.xml";

// A file named a.docx beside the place where temporary folders are made, while it lives.
class Desk {
 public:
  Desk() {
    fs::create_directories(folder_.Path("temporary"));
    SetVariable("TMPDIR", folder_.Path("temporary"));
  }
  ~Desk() { SetVariable("TMPDIR", ""); }

  [[nodiscard]] std::string Put(const std::string& bytes, const char* name = "a.docx") const {
    return folder_.Write(name, bytes);
  }
  [[nodiscard]] bool IsClean() const { return fs::is_empty(folder_.Path("temporary")); }

 private:
  TestFolder folder_;
};

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
      {"quotes too", "[&quot;it&apos;s&quot; &amp;quot; &#39;]", "\"it's\" \" &#39;"},
      {"each run is repaired for itself", "[\xE2\x80\xA0\xE2\x80\x99][\xE2\x80\x99\xC3][\xA9]",
       "\xE2\x80\x99'\xC3\xA9"},
  };
  for (const auto& [name, marked, expected] : rows) {
    const std::string starts = naive::Replace(std::string(marked), "[", "<w:t>");
    ScriptedInterface ui;
    const std::string xml = naive::Replace(starts, "]", "</w:t>");
    EXPECT_EQ(ReadDocumentRuns(xml, ui).text, expected) << name;
    EXPECT_TRUE(ui.labels.empty()) << name;
  }
}

TEST(DocxText, WalkStopsOnlyWhenConfirmedAndShowsHowFarItIs) {
  std::string xml;
  while (xml.size() <= 1000000) xml += "<w:r><w:t>word </w:t></w:r>";
  ScriptedInterface ui;
  ui.answers = {Answer::no};
  ui.stopAtYield = 3;
  const DocumentRuns runs = ReadDocumentRuns(xml, ui);
  EXPECT_EQ(runs.text.size(), xml.size() / 27 * 5);
  EXPECT_FALSE(runs.stopped || ui.StopRequested());
  EXPECT_EQ(ui.Said(),
            "Stop: Many different words have been found.\r\nDo you really wish to stop?\n");
  const std::vector<std::string>& bar = ui.labels[Label::progressBar];
  EXPECT_EQ(bar.front(), "[>" + std::string(40, ' ') + "]");
  EXPECT_EQ(bar.at(bar.size() - 2).substr(0, 35), "[" + std::string(34, '-'));
  EXPECT_EQ(bar.back(), "");
}

std::string Xml(const std::string& text) { return "<w:p><w:t>" + text + "</w:t></w:p>"; }

std::string BodyOfSize(std::size_t size) {
  return ZipArchive({{BODY, Xml(std::string(size - Xml("").size(), 'x'))}});
}

// The messages and then the text, or how long it is.
std::string ReadDocument(const Desk& desk, const std::string& bytes, bool yes = false) {
  const std::string path = desk.Put(bytes);
  ScriptedInterface ui;
  if (yes) ui.answers = {Answer::yes};
  bool isUtf8 = false;
  bool macNoticeShown = false;
  const auto text = ObtainDocumentText(path, EncodingChoice::confirm, isUtf8, macNoticeShown, ui);
  EXPECT_EQ(isUtf8, text.has_value());
  EXPECT_EQ(ui.output, "Extracting text ...\r\n");
  EXPECT_TRUE(desk.IsClean());
  if (!text) return ui.Said(path);
  return ui.Said(path) + "= " + (text->size() < 100 ? *text : std::to_string(text->size()));
}

TEST(DocumentText, ReadsOddDocumentsOrSaysWhatIsWrong) {
  const std::string anyway =
      "Error: Invalid checksum found when processing\r\n@\r\n"
      "Do you wish to scan this file anyway?\n";
  const std::string nothing = "Error: File @\r\nholds no document text.\n";
  const std::string isBig =
      "Big file: @\r\nis rather large.  It may take awhile to scan.\r\n"
      "Do you wish to continue?\n";
  const std::string saveAsText =
      "Big file: You could try saving it as a text file\r\n"
      "and applying this program to that file.\n";
  const std::string tooBig =
      "File too big: @\r\nis too large to be scanned directly.\r\n\r\n"
      "Recommend saving it as a text file and\r\napplying this program to that file.\n";
  const std::string stored = ZipArchive({{BODY, Xml("ships"), ZIP_CM_STORE}});
  const std::string damaged = naive::Replace(stored, "ships", "chips");
  const std::string others = ZipArchive({{"a", "x"}, {BODY, Xml("caf\xC3\xA9")}, {"z", ""}});
  const auto lying = WithField(BodyOfSize(30000000), CENTRAL_RECORD, 24, 10, 4);
  const struct {
    const char* name;
    std::string bytes;
    std::string expected;
    bool yes = false;
  } rows[] = {
      {"among others", others, "= caf\xE9"},
      {"no runs", ZipArchive({{BODY, "<w:p/>"}}), "= "},
      {"an empty body", ZipArchive({{BODY, ""}}), "= "},
      {"wrong checksum, yes", damaged, anyway + "= chips", true},
      {"no body", ZipArchive({{"content.xml", Xml("ships")}}), anyway + nothing, true},
      {"no archive", "PK\x03\x04 is how one begins", anyway + nothing, true},
      {"encrypted", WithField(stored, CENTRAL_RECORD, 8, 1, 2), anyway + nothing, true},
      {"at the threshold", BodyOfSize(10485760), "= 10485738"},
      {"above it, declined by Enter", BodyOfSize(10485761), isBig + saveAsText},
      {"at the limit", BodyOfSize(20971520), isBig + "= 20971498", true},
      {"above the limit", BodyOfSize(20971521), tooBig},
      {"far above it, small by the directory", lying, tooBig},
  };
  const Desk desk;
  for (const auto& row : rows) {
    EXPECT_EQ(ReadDocument(desk, row.bytes, row.yes), row.expected) << row.name;
  }
}

TEST(DocumentText, TellsThatTheTemporaryFolderIsOfNoUse) {
  SKIP_ON_WINDOWS("files cannot be limited, and the place of temporary folders is always there");
  const Desk desk;
  {
    const FileSizeLimit disk(1000);
    EXPECT_EQ(ReadDocument(desk, BodyOfSize(100000)),
              "Quorvel: Unable to write to temporary folder.\n");
  }
  SetVariable("TMPDIR", "/none");
  EXPECT_EQ(ReadDocument(desk, BodyOfSize(100)), "Quorvel: Unable to create temporary folder.\n");
}

TEST(DocxText, AsksOnlyWhereItMay) {
  const Desk desk;
  ScriptedInterface ui;
  ui.answers = {Answer::no};
  const std::string damaged = WithField(BodyOfSize(150), CENTRAL_RECORD, 16, 1, 4);
  const auto codeOf = [&](const std::string& bytes, const ExtractOptions& options) {
    return ExtractDocumentText(desk.Put(bytes), "QVL", options, ui).code;
  };
  EXPECT_EQ(codeOf(damaged, {false, false, {200, 100}}), ExtractionCode::damaged);
  EXPECT_EQ(codeOf(BodyOfSize(150), {false, false, {200, 100}}), ExtractionCode::success);
  EXPECT_TRUE(ui.questions.empty());
  EXPECT_EQ(codeOf(damaged, {}), ExtractionCode::damageDeclined);
}

TEST(DocumentText, TellsWordDocumentsFromOthers) {
  const Desk desk;
  EXPECT_TRUE(IsWordDocument(desk.Put("PK\x03\x04 56789", "A.DOCX")));
  EXPECT_FALSE(IsWordDocument(desk.Put("PK\x03\x04 5678")));
  EXPECT_FALSE(IsWordDocument(desk.Put("PK is no archive")));
}

TEST(DocumentText, RemovesTheFolderAfterAStop) {
  const Desk desk;
  bool isUtf8 = false;
  ScriptedInterface ui;
  ui.stopAtYield = 1;
  EXPECT_FALSE(ReadWordDocument(desk.Put(BodyOfSize(100)), isUtf8, ui).has_value());
  EXPECT_TRUE(ui.StopRequested());
  EXPECT_TRUE(desk.IsClean());
}

// As two programs wrote them, from the source that stands beside each.
TEST(DocumentText, ReadsDocumentsOfOtherPrograms) {
  for (const char* name : {"harbour_log", "market_day"}) {
    const std::string path = QUORVEL_TEST_DATA "/docx/" + std::string(name);
    ScriptedInterface ui;
    bool isUtf8 = false;
    EXPECT_EQ(ReadWordDocument(path + ".docx", isUtf8, ui), ReadFileBytes(path + ".txt").bytes);
  }
}

}  // namespace
}  // namespace quorvel
