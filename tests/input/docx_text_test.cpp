#include "input/docx_text.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <random>
#include <stdexcept>

#include "input/document_text.h"
#include "input/file_system.h"
#include "naive/naive_forms.h"
#include "support/file_size_limit.h"
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
  explicit Desk(const std::string& name = "temporary") {
    fs::create_directories(folder_.Path("temporary"));
    ::setenv("TMPDIR", folder_.Path(name).c_str(), 1);
  }
  ~Desk() { ::unsetenv("TMPDIR"); }
  Desk(const Desk&) = delete;
  Desk& operator=(const Desk&) = delete;

  [[nodiscard]] std::string Put(const std::string& bytes, const char* name = "a.docx") const {
    return folder_.Write(name, bytes);
  }
  [[nodiscard]] bool IsClean() const { return fs::is_empty(folder_.Path("temporary")); }

 private:
  TestFolder folder_;
};

// Everything that was said, with "@" for the path.
std::string Messages(const ScriptedInterface& ui, const std::string& path) {
  std::string said;
  for (const Message& message : ui.questions) said += message.title + ": " + message.text + "\n";
  for (std::size_t at = 0; (at = said.find(path)) != std::string::npos;) {
    said.replace(at, path.size(), "@");
  }
  return said;
}

// The walk over the XML as it is defined, run by run and without a thought of time.
std::string NaiveRuns(const std::string& xml) {
  const auto replaceAll = [](std::string text, const std::string& from, const std::string& to) {
    for (std::size_t at = 0; (at = text.find(from, at)) != std::string::npos; at += to.size()) {
      text.replace(at, from.size(), to);
    }
    return text;
  };
  std::string joined;
  std::string between;
  bool isFirst = true;
  for (std::size_t position = 0;;) {
    const std::size_t start = xml.find("<w:t", position);
    const std::size_t end = xml.find("</w:t>", position);
    if (start == std::string::npos || end == std::string::npos || end < start) return joined;
    if (xml[start + 4] != ' ' && xml[start + 4] != '>') {
      between += xml.substr(position, start + 4 - position);
      position = start + 4;
      continue;
    }
    between += xml.substr(position, start - position);
    const std::size_t from = xml.find('>', start) + 1;
    std::string run = from > end ? "" : xml.substr(from, end - from);
    const bool isBroken =
        between.find("<w:br/>") != std::string::npos || between.find("</w:p>") != std::string::npos;
    if (isBroken && !isFirst) run.insert(0, " ");
    if (run.find_first_not_of(' ') == std::string::npos) {
      joined += ' ';
    } else {
      run = replaceAll(replaceAll(replaceAll(run, "&amp;", "&"), "&lt;", "<"), "&gt;", ">");
      joined += naive::PlainPunctuation(naive::RepairUtf8(run));
    }
    between.clear();
    isFirst = false;
    position = end + 6;
  }
}

struct RunsRow {
  const char* name;
  std::string xml;
  std::string expected;
};

TEST(DocxText, ReadsRuns) {
  const RunsRow rows[] = {
      {"empty", "", ""},
      {"no runs", "<w:p><w:tab/></w:p>", ""},
      {"a word in two runs", "<w:p><w:t>Hel</w:t></w:r><w:r><w:t>lo</w:t></w:p>", "Hello"},
      {"end of paragraph", "<w:p><w:t>Hel</w:t></w:p><w:p><w:t>lo</w:t></w:p>", "Hel lo"},
      {"line break", "<w:t>a</w:t><w:br/><w:t>b</w:t>", "a b"},
      {"only this form of a line break counts",
       "<w:t>a</w:t><w:br /><w:t>b</w:t><w:br w:type=\"page\"/><w:t>c</w:t><w:cr/><w:t>d</w:t>",
       "abcd"},
      {"a break before the first run", "<w:p/></w:p><w:br/><w:t>a</w:t>", "a"},
      {"several breaks are one blank", "<w:t>a</w:t><w:br/></w:p></w:p><w:t>b</w:t>", "a b"},
      {"a tab and a table do not end the place between runs",
       "<w:t>a</w:t></w:p><w:tbl><w:tr><w:tc><w:tab/><w:t>b</w:t>", "a b"},
      {"attributes", "<w:t xml:space=\"preserve\"> a </w:t>", " a "},
      {"blanks only", "<w:t>a</w:t><w:t>   </w:t><w:t>b</w:t>", "a b"},
      {"no character at all", "<w:t>a</w:t></w:p><w:t></w:t><w:t>b</w:t>", "a b"},
      {"an empty run without attributes", "<w:t/><w:t>a</w:t>", "a"},
      {"one with attributes reaches to the next run end", "<w:t x=\"\"/></w:r><w:t>a</w:t>",
       "</w:r><w:t>a"},
      {"a start without its end mark", "<w:t </w:t><w:t>a</w:t>", " a"},
      {"a run without an end", "<w:t>a</w:t><w:t>b", "a"},
      {"an end without a start ends the walk", "<w:t>a</w:t></w:t><w:t>b</w:t>", "a"},
      {"deleted text", "<w:delText>x</w:delText><w:t>a</w:t>", "a"},
      {"entities", "<w:t>a &amp; b &lt; c &gt; d</w:t>", "a & b < c > d"},
      {"an escaped entity is decoded twice", "<w:t>&amp;lt; &amp;gt; &amp;amp;</w:t>", "< > &amp;"},
      {"other entities stay", "<w:t>&quot;&apos;&#65;&lt</w:t>", "&quot;&apos;&#65;&lt"},
      {"UTF-8", "<w:t>caf\xC3\xA9 \xE2\x80\x94 \xE2\x80\x9Cx\xE2\x80\x9D</w:t>",
       "caf\xE9  --  \"x\""},
      {"each run is repaired for itself",
       "<w:t>\xE2\x80\xA0\xE2\x80\x99</w:t><w:t>\xE2\x80\x99\xC3</w:t><w:t>\xA9</w:t>",
       "\xE2\x80\x99'\xC3\xA9"},
  };
  for (const auto& [name, xml, expected] : rows) {
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
  for (int round = 0; round < 100000; ++round) {
    std::string xml;
    for (std::size_t left = random() % 40; left > 0; --left) xml += parts[random() % parts.size()];
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
  EXPECT_EQ(Messages(ui, "@"),
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
  std::vector<Answer> answers;
  std::string expected;  // the messages and then the text, or how long it is
  std::string temporaryFolder = "temporary";
  rlim_t largestFile = RLIM_INFINITY;
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
  std::string said = Messages(ui, path);
  if (!text) return said;
  return said + "= " + (text->size() < 100 ? *text : std::to_string(text->size()));
}

TEST(DocumentText, ReadsOddDocumentsOrSaysWhatIsWrong) {
  const std::string anyway =
      "Error: Invalid checksum found when processing\r\n@\r\n"
      "Do you wish to scan this file anyway?\n";
  const std::string noText = anyway + "Error: File @\r\nholds no document text.\n";
  const std::string isBig =
      "Big file: @\r\nis rather large.  It may take awhile to scan.\r\n"
      "Do you wish to continue?\n";
  const std::string saveAsText =
      "Big file: You could try saving it as a text file\r\n"
      "and applying this program to that file.\n";
  const std::string tooBig =
      "File too big: @\r\nis too large to be scanned directly.\r\n\r\n"
      "Recommend saving it as a text file and\r\napplying this program to that file.\n";
  const std::string plain = ZipArchive({{BODY, Xml("ships")}});
  const std::string stored = ZipArchive({{BODY, Xml("ships"), ZIP_CM_STORE}});
  std::string damaged = stored;
  damaged[damaged.find("ships")] = 'c';
  const auto central = [&plain](std::size_t offset, std::uint64_t value, int width) {
    return WithField(plain, CENTRAL_RECORD, offset, value, width);
  };
  const auto lying = WithField(BodyOfSize(30000000), CENTRAL_RECORD, 24, 10, 4);
  const DocumentRow rows[] = {
      {"deflated", plain, {}, "= ships"},
      {"stored", stored, {}, "= ships"},
      {"among others",
       ZipArchive({{"a", "x"}, {BODY, Xml("caf\xC3\xA9")}, {"z", ""}}),
       {},
       "= caf\xE9"},
      {"64-bit", AsZip64(plain, 1), {}, "= ships"},
      {"64-bit with a wrong count", AsZip64(plain, 1ULL << 40U), {Answer::yes}, noText},
      {"bytes behind the archive", plain + std::string(100, 'x'), {}, "= ships"},
      {"no runs", ZipArchive({{BODY, "<w:p/>"}}), {}, "= "},
      {"an empty body", ZipArchive({{BODY, ""}}), {}, noText.substr(anyway.size())},
      {"wrong checksum, yes", damaged, {Answer::yes}, anyway + "= chips"},
      {"wrong checksum, no", damaged, {Answer::no}, anyway},
      {"wrong checksum in the directory", central(16, 1, 4), {Answer::yes}, anyway + "= ships"},
      {"place beyond the end", central(42, 4000000000, 4), {Answer::yes}, noText},
      {"unknown method", central(10, 98, 2), {Answer::yes}, noText},
      {"several disks", WithField(plain, END_RECORD, 4, 1, 2), {Answer::yes}, noText},
      {"encrypted", central(8, 1, 2), {Answer::yes}, noText},
      {"no body", ZipArchive({{"content.xml", Xml("ships")}}), {Answer::yes}, noText},
      {"a folder of its name", ZipArchive({{"word/document.xml/", ""}}), {Answer::yes}, noText},
      {"no archive", "PK\x03\x04 is how one begins", {Answer::yes}, noText},
      {"no temporary folder", plain, {}, "Quorvel: Unable to create temporary folder.\n", "none"},
      {"a full disk",
       BodyOfSize(100000),
       {},
       "Quorvel: Unable to write to temporary folder.\n",
       "temporary",
       1000},
      {"at the threshold", BodyOfSize(10485760), {}, "= 10485738"},
      {"above it", BodyOfSize(10485761), {Answer::yes}, isBig + "= 10485739"},
      {"above it, declined by Enter", BodyOfSize(10485761), {}, isBig + saveAsText},
      {"at the limit", BodyOfSize(20971520), {Answer::yes}, isBig + "= 20971498"},
      {"above the limit", BodyOfSize(20971521), {}, tooBig},
      {"far above it, small by the directory", lying, {}, tooBig},
  };
  for (const DocumentRow& row : rows) EXPECT_EQ(ReadDocument(row), row.expected) << row.name;
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
    std::string bytes = "PK\x03\x04" + std::string(random() % 500, ' ');
    for (std::size_t at = 4; at < bytes.size(); ++at) bytes[at] = static_cast<char>(random());
    spoilt.push_back(bytes);
    bytes = whole;
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
  EXPECT_FALSE(IsWordDocument("none.docx"));
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
