#include "input/docx_text.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <random>
#include <stdexcept>

#include "input/document_text.h"
#include "input/file_system.h"
#include "naive/naive_forms.h"
#include "naive/places.h"
#include "support/file_size_limit.h"
#include "support/made_texts.h"
#include "support/platform.h"
#include "support/scripted_interface.h"
#include "support/test_folder.h"
#include "support/zip_builder.h"

namespace quorvel {
namespace {

namespace fs = std::filesystem;
using naive::Find;
using naive::Mid;
using naive::Replace;

constexpr const char* BODY = "word/document.xml";

// A file named a.docx beside the place where temporary folders are made, while it lives.
class Desk {
 public:
  explicit Desk(const std::string& name = "temporary") {
    fs::create_directories(folder_.Path("temporary"));
    SetVariable("TMPDIR", folder_.Path(name));
  }
  ~Desk() { SetVariable("TMPDIR", ""); }

  [[nodiscard]] std::string Put(const std::string& bytes, const char* name = "a.docx") const {
    return folder_.Write(name, bytes);
  }
  [[nodiscard]] bool IsClean() const { return fs::is_empty(folder_.Path("temporary")); }

 private:
  TestFolder folder_;
};

// The walk over the XML as it is defined, run by run and without a thought of time.
std::string NaiveRuns(const std::string& xml) {
  std::string joined;
  int previous = 0;  // the place behind the run before
  for (int position = 1;;) {
    const int start = Find(xml, position, "<w:t");
    const int end = Find(xml, position, "</w:t>");
    if (start == 0 || end < start) return joined;
    position = start + 4;
    if (Mid(xml, position, 1) != " " && Mid(xml, position, 1) != ">") continue;
    const int from = Find(xml, position, ">") + 1;
    std::string run = Mid(xml, from, end - from);
    const std::string between = previous > 0 ? Mid(xml, previous, start - previous) : "";
    const bool isBroken = Find(between, 1, "<w:br/>") > 0 || Find(between, 1, "</w:p>") > 0;
    if (isBroken) run = " " + run;
    run = Replace(Replace(Replace(run, "&amp;", "&"), "&lt;", "<"), "&gt;", ">");
    const bool isBlank = Replace(run, " ", "").empty();
    joined += isBlank ? " " : naive::PlainPunctuation(naive::RepairUtf8(run));
    position = previous = end + 6;
  }
}

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
      {"each run is repaired for itself", "[\xE2\x80\xA0\xE2\x80\x99][\xE2\x80\x99\xC3][\xA9]",
       "\xE2\x80\x99'\xC3\xA9"},
  };
  for (const auto& [name, marked, expected] : rows) {
    const std::string xml = Replace(Replace<std::string>(marked, "[", "<w:t>"), "]", "</w:t>");
    ScriptedInterface ui;
    EXPECT_EQ(ReadDocumentRuns(xml, ui).text, expected) << name;
    EXPECT_EQ(NaiveRuns(xml), expected) << name;
    EXPECT_TRUE(ui.labels.empty()) << name;
  }
}

TEST(DocxText, RunsAreTheSameAsInTheNaiveForm) {
  const std::vector<std::string> parts = {
      "<w:t>",    "<w:t>",        "<w:t ",    "<w:t",  "</w:t>", "</w:t>", "</w:t>",
      "<w:tab/>", "<w:br/>",      "</w:p>",   "</w:p", ">",      "a",      "a ",
      " ",        "  ",           "&amp;",    "&lt;",  "&gt;",   "lt;",    "amp;",
      "&",        "\xE2\x80\x94", "\xC3\xA9", "\xC3",  "\xA9",   "\xC2",   "\xE2\x80\xA0"};
  std::mt19937 random(20261121);
  ScriptedInterface ui;
  for (int round = 0; round < 60000; ++round) {
    const std::string xml = RandomText(parts, 40, random);
    ASSERT_EQ(ReadDocumentRuns(xml, ui).text, NaiveRuns(xml)) << xml;
  }
}

TEST(DocxText, WalkStopsOnlyWhenConfirmedAndShowsHowFarItIs) {
  std::string xml;
  while (xml.size() <= 1000000) xml += "<w:r><w:t>word </w:t></w:r>";
  ScriptedInterface ui;
  ui.answers = {Answer::no};
  ui.stopAtYield = 3;
  DocumentRuns runs = ReadDocumentRuns(xml, ui);
  EXPECT_EQ(runs.text.size(), xml.size() / 27 * 5);
  EXPECT_FALSE(runs.stopped || ui.StopRequested());
  EXPECT_EQ(ui.Said(),
            "Stop: Many different words have been found.\r\nDo you really wish to stop?\n");
  const std::vector<std::string>& bar = ui.labels[Label::progressBar];
  EXPECT_EQ(bar.front(), "[>" + std::string(40, ' ') + "]");
  EXPECT_EQ(bar.at(bar.size() - 2).substr(0, 35), "[" + std::string(34, '-'));
  EXPECT_EQ(bar.back(), "");

  ScriptedInterface stopping;
  stopping.stopAtYield = 3;
  runs = ReadDocumentRuns(xml.substr(0, 1000000), stopping);
  EXPECT_TRUE(runs.stopped && stopping.StopRequested());
  EXPECT_LT(runs.text.size(), 50000U);
  EXPECT_TRUE(stopping.labels.empty());
}

std::string Xml(const std::string& text) { return "<w:p><w:t>" + text + "</w:t></w:p>"; }

// A long text that no method makes much shorter.
std::string NoisyText() {
  std::mt19937 random(20261121);
  std::string text(20000, ' ');
  for (char& letter : text) letter = static_cast<char>('a' + random() % 26);
  return text;
}

std::string BodyOfSize(std::size_t size) {
  return ZipArchive({{BODY, Xml(std::string(size - Xml("").size(), 'x'))}});
}

struct DocumentRow {
  const char* name;
  std::string bytes;
  std::string expected;  // the messages and then the text, or how long it is
  std::vector<Answer> answers = {};
  std::uint64_t largestFile = FileSizeLimit::NONE;
  std::string temporaryFolder = "temporary";
};

std::string ReadDocument(const DocumentRow& row) {
  const Desk desk(row.temporaryFolder);
  const std::string path = desk.Put(row.bytes);
  const FileSizeLimit disk(row.largestFile);
  ScriptedInterface ui;
  ui.answers = row.answers;
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
  using enum Answer;
  const std::string anyway =
      "Error: Invalid checksum found when processing\r\n@\r\n"
      "Do you wish to scan this file anyway?\n";
  const std::string empty = "Error: File @\r\nholds no document text.\n";
  const std::string noText = anyway + empty;
  const std::string isBig =
      "Big file: @\r\nis rather large.  It may take awhile to scan.\r\n"
      "Do you wish to continue?\n";
  const std::string saveAsText =
      "Big file: You could try saving it as a text file\r\n"
      "and applying this program to that file.\n";
  const std::string tooBig =
      "File too big: @\r\nis too large to be scanned directly.\r\n\r\n"
      "Recommend saving it as a text file and\r\napplying this program to that file.\n";
  const std::string unwritable = "Quorvel: Unable to write to temporary folder.\n";
  const std::string noFolder = "Quorvel: Unable to create temporary folder.\n";
  const std::string plain = ZipArchive({{BODY, Xml("ships")}});
  const std::string stored = ZipArchive({{BODY, Xml("ships"), ZIP_CM_STORE}});
  const std::string damaged = Replace(stored, "ships", "chips");
  const std::string others = ZipArchive({{"a", "x"}, {BODY, Xml("caf\xC3\xA9")}, {"z", ""}});
  const auto central = [&plain](std::size_t offset, std::uint64_t value, int width) {
    return WithField(plain, CENTRAL_RECORD, offset, value, width);
  };
  const auto lying = WithField(BodyOfSize(30000000), CENTRAL_RECORD, 24, 10, 4);
  const DocumentRow rows[] = {
      {"among others", others, "= caf\xE9"},
      {"64-bit", AsZip64(plain, 1), "= ships"},
      {"64-bit with a wrong count", AsZip64(plain, 1ULL << 40U), noText, {yes}},
      {"no runs", ZipArchive({{BODY, "<w:p/>"}}), "= "},
      {"an empty body", ZipArchive({{BODY, ""}}), empty},
      {"wrong checksum, yes", damaged, anyway + "= chips", {yes}},
      {"wrong checksum, no", damaged, anyway, {no}},
      {"wrong checksum in the directory", central(16, 1, 4), anyway + "= ships", {yes}},
      {"place beyond the end", central(42, 4000000000, 4), noText, {yes}},
      {"several disks", WithField(plain, END_RECORD, 4, 1, 2), noText, {yes}},
      {"encrypted", central(8, 1, 2), noText, {yes}},
      {"no body", ZipArchive({{"content.xml", Xml("ships")}}), noText, {yes}},
      {"a folder of its name", ZipArchive({{"word/document.xml/", ""}}), noText, {yes}},
      {"no archive", "PK\x03\x04 is how one begins", noText, {yes}},
      {"no temporary folder", plain, noFolder, {}, FileSizeLimit::NONE, "none"},
      {"a full disk", BodyOfSize(100000), unwritable, {}, 1000},
      {"at the threshold", BodyOfSize(10485760), "= 10485738"},
      {"above it, declined by Enter", BodyOfSize(10485761), isBig + saveAsText},
      {"at the limit", BodyOfSize(20971520), isBig + "= 20971498", {yes}},
      {"above the limit", BodyOfSize(20971521), tooBig},
      {"far above it, small by the directory", lying, tooBig},
  };
  for (const DocumentRow& row : rows) {
    // On Windows files cannot be limited, and the place of temporary folders is always there.
    const bool hasFault = row.largestFile != FileSizeLimit::NONE || row.temporaryFolder == "none";
    if (ON_WINDOWS && hasFault) continue;
    EXPECT_EQ(ReadDocument(row), row.expected) << row.name;
  }
}

TEST(DocxText, TakesOptionsAndOtherDocuments) {
  const Desk desk;
  ScriptedInterface ui;
  const auto codeOf = [&](const std::string& bytes, const ExtractOptions& options) {
    return ExtractDocumentText(desk.Put(bytes), "QVL", options, ui).code;
  };
  const ExtractOptions unasked = {false, false, {200, 100}};
  const std::string damaged = WithField(BodyOfSize(150), CENTRAL_RECORD, 16, 1, 4);
  EXPECT_EQ(codeOf(damaged, unasked), ExtractionCode::damaged);
  EXPECT_EQ(codeOf(BodyOfSize(200), unasked), ExtractionCode::success);
  EXPECT_EQ(codeOf(BodyOfSize(201), unasked), ExtractionCode::tooLarge);
  EXPECT_EQ(codeOf(BodyOfSize(101), {true, true, {200, 100}}), ExtractionCode::sizeDeclined);
  EXPECT_EQ(ui.questions.size(), 2U);
  const std::string odt = desk.Put(ZipArchive({{"content.xml", Xml("ships")}}), "a.ODT");
  EXPECT_EQ(ExtractDocumentText(odt, "QVL", {}, ui).text, "ships");
  EXPECT_TRUE(desk.IsClean());
}

TEST(DocxText, SpoiltArchivesEndInTextOrMessage) {
  const std::string whole = ZipArchive({{"a.xml", NoisyText()}, {BODY, Xml(NoisyText())}});
  std::mt19937 random(20261121);
  std::vector<std::string> spoilt;
  for (std::size_t length = 4; length < whole.size(); length += 97) {
    spoilt.push_back(whole.substr(0, length));
  }
  for (int n = 0; n < 300; ++n) {
    std::string bytes = whole;
    // Most of them where the directory is.
    for (int hits = 3; hits > 0; --hits) {
      const std::size_t back = random() % (n % 3 == 0 ? whole.size() : 200);
      bytes[whole.size() - 1 - back] = static_cast<char>(random());
    }
    spoilt.push_back(bytes);
  }
  for (const std::uint64_t length : {0U, 3U, 100000U, 4000000000U}) {
    spoilt.push_back(WithField(whole, CENTRAL_RECORD, 20, length, 4));
    spoilt.push_back(WithField(whole, CENTRAL_RECORD, 24, length, 4));
  }
  const Desk desk;
  for (const std::string& bytes : spoilt) {
    ScriptedInterface ui;
    ui.answers = {Answer::yes};
    const ExtractedText got = ExtractDocumentText(desk.Put(bytes), "QVL", {}, ui);
    const bool hasText = got.code == ExtractionCode::success;
    EXPECT_TRUE(hasText || got.code == ExtractionCode::noBody) << testing::PrintToString(bytes);
    // What passes unasked is whole.
    EXPECT_TRUE(!hasText || !ui.questions.empty() || got.text == NoisyText());
    ASSERT_TRUE(desk.IsClean());
  }
}

TEST(DocumentText, TellsWordDocumentsFromOthers) {
  const Desk desk;
  EXPECT_TRUE(IsWordDocument(desk.Put("PK\x03\x04 56789", "A.DOCX")));
  EXPECT_FALSE(IsWordDocument(desk.Put("PK\x03\x04 5678")));
  EXPECT_FALSE(IsWordDocument(desk.Put("PK is no archive")));
  EXPECT_FALSE(IsWordDocument(desk.Put("PK\x03\x04 56789", "a.odt")));
}

// Fails at the first yield, in the middle of a walk.
struct FailingInterface : ScriptedInterface {
  void YieldNow() override { throw std::runtime_error("window gone"); }
};

TEST(DocumentText, RemovesTheFolderAfterAStopAndAFailure) {
  const Desk desk;
  const std::string path = desk.Put(ZipArchive({{BODY, Xml("ships")}}));
  bool isUtf8 = false;
  ScriptedInterface ui;
  ui.stopAtYield = 1;
  EXPECT_FALSE(ReadWordDocument(path, isUtf8, ui).has_value());
  EXPECT_TRUE(ui.StopRequested());
  EXPECT_TRUE(desk.IsClean());
  FailingInterface failing;
  EXPECT_THROW((void)ReadWordDocument(path, isUtf8, failing), std::runtime_error);
  EXPECT_TRUE(desk.IsClean());
}

// Documents as two programs wrote them, from the source that stands beside each; so does
// what must come out.
TEST(DocumentText, ReadsDocumentsOfOtherPrograms) {
  int documents = 0;
  for (const fs::directory_entry& file : fs::directory_iterator(QUORVEL_TEST_DATA "/docx")) {
    if (file.path().extension() != ".docx") continue;
    ++documents;
    ScriptedInterface ui;
    bool isUtf8 = false;
    const auto text = ReadWordDocument(file.path().string(), isUtf8, ui);
    fs::path expected = file.path();
    EXPECT_EQ(text, ReadFileBytes(expected.replace_extension("txt").string()).bytes) << file.path();
  }
  EXPECT_EQ(documents, 2);
}

}  // namespace
}  // namespace quorvel
