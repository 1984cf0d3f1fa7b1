// What is asked and told between the bytes of an input and its document.

#include "run/document_reading.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "naive/places.h"
#include "support/file_size_limit.h"
#include "support/platform.h"
#include "support/scripted_conversation.h"
#include "support/test_folder.h"
#include "support/zip_builder.h"

namespace quorvel {
namespace {

namespace fs = std::filesystem;

constexpr const char* EXTRACTING = "Extracting text ...\r\n";

// A place for temporary folders, while it lives.
class Desk {
 public:
  Desk() { SetVariable("TMPDIR", folder_.Path("")); }
  ~Desk() { SetVariable("TMPDIR", ""); }

  [[nodiscard]] bool IsClean() const { return folder_.Count() == 0; }
  [[nodiscard]] std::string Path(std::string_view name) const { return folder_.Path(name); }

 private:
  TestFolder folder_;
};

// One input, read with the settings that a row of a test changes.
struct Reading {
  ReadingRequest request;
  bool isUtf8 = false;
  bool macNoticeShown = false;

  std::shared_ptr<const Document> Of(const char* name, std::string_view bytes, Conversation& ui) {
    return ObtainDocument(InputBytes(name, bytes), request, isUtf8, macNoticeShown, ui);
  }
};

std::string Xml(const std::string& text) { return "<w:p><w:t>" + text + "</w:t></w:p>"; }

std::string BodyOfSize(std::size_t size) {
  return ZipArchive({{BODY_ENTRY, Xml(std::string(size - Xml("").size(), 'x'))}});
}

// The messages and then the text, or how long it is.
std::string ReadDocument(const Desk& desk, const std::string& bytes, bool yes = false) {
  ScriptedConversation ui;
  if (yes) ui.answers = {Answer::yes};
  Reading reading;
  const auto document = reading.Of("a.docx", bytes, ui);
  EXPECT_EQ(reading.isUtf8, document != nullptr);
  EXPECT_TRUE(desk.IsClean());
  EXPECT_TRUE(ui.output.starts_with(EXTRACTING));
  EXPECT_EQ(ui.output.size() > std::string(EXTRACTING).size(), document != nullptr);
  if (!document) return ui.Said("a.docx");
  const std::string& text = document->ansiText;
  return ui.Said("a.docx") + "= " + (text.size() < 100 ? text : std::to_string(text.size()));
}

TEST(WordDocuments, AreReadOrItIsSaidWhatIsWrong) {
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
  const std::string stored = ZipArchive({{BODY_ENTRY, Xml("ships"), ZIP_CM_STORE}});
  const std::string damaged = naive::Replace(stored, "ships", "chips");
  const std::string others = ZipArchive({{"a", "x"}, {BODY_ENTRY, Xml("caf\xC3\xA9")}, {"z", ""}});
  const auto lying = WithField(BodyOfSize(30000000), CENTRAL_RECORD, 24, 10, 4);
  std::vector<ZipEntry> entries(3000);
  for (std::size_t i = 0; i < entries.size(); ++i) entries[i].name = std::to_string(i);
  entries[2000] = {BODY_ENTRY, Xml("caf\xC3\xA9")};
  const std::string many = ZipArchive(entries);
  const struct {
    const char* name;
    std::string bytes;
    std::string expected;
    bool yes = false;
  } rows[] = {
      {"among others", others, "= caf\xE9"},
      {"among thousands", many, "= caf\xE9"},
      {"among thousands, of which some are lost", WithField(many, "PK\x05\x06", 12, 46, 4),
       anyway + nothing, true},
      {"not among thousands", naive::Replace(many, "word/d", "xord/d"), anyway + nothing, true},
      {"no runs", ZipArchive({{BODY_ENTRY, "<w:p/>"}}), "= "},
      {"an empty body", ZipArchive({{BODY_ENTRY, ""}}), "= "},
      {"wrong checksum, yes", damaged, anyway + "= chips", true},
      {"no body", ZipArchive({{"content.xml", Xml("ships")}}), anyway + nothing, true},
      {"no archive", "PK\x03\x04 is how one begins", anyway + nothing, true},
      {"encrypted", WithField(stored, CENTRAL_RECORD, 8, 1, 2), anyway + nothing, true},
      {"empty by the directory", WithField(stored, CENTRAL_RECORD, 20, 0, 4), anyway + nothing,
       true},
      {"wholly so",
       WithField(WithField(stored, CENTRAL_RECORD, 16, 0, 8), CENTRAL_RECORD, 24, 0, 4),
       anyway + nothing, true},
      {"longer by the directory", WithField(stored, CENTRAL_RECORD, 20, 33, 4), anyway + "= ships",
       true},
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

TEST(WordDocuments, AreNotReadAfterANo) {
  const Desk desk;
  ScriptedConversation ui;
  ui.answers = {Answer::no};
  EXPECT_EQ(Reading().Of("a.docx", ZipArchive({{"content.xml", "x"}}), ui), nullptr);
  EXPECT_EQ(ui.questions.size(), 1U);
  EXPECT_EQ(ui.output, EXTRACTING);
}

TEST(WordDocuments, TellThatTheTemporaryFolderIsOfNoUse) {
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

// A user who looks for the text of the document while a question waits.
struct Looking : ScriptedConversation {
  explicit Looking(const Desk& watched) : desk(watched) {}
  Answer Ask(const Message& message) override {
    EXPECT_TRUE(desk.IsClean());
    ScriptedConversation::Ask(message);
    return Answer::yes;
  }
  const Desk& desk;
};

TEST(WordDocuments, LieInNoFolderWhileAQuestionWaits) {
  SKIP_ON_WINDOWS("a file that is open keeps its name");
  const Desk desk;
  Looking user(desk);
  Reading reading;
  reading.request.limits.warning = 100;
  EXPECT_NE(reading.Of("a.docx", BodyOfSize(101), user), nullptr);
  EXPECT_EQ(user.questions.size(), 1U);
}

TEST(WordDocuments, AreLeftWhenAStopIsConfirmed) {
  const std::string said =
      "Stop: Many different words have been found.\r\nDo you really wish to stop?\n";
  const std::string bytes = BodyOfSize(100);
  for (const Answer answer : {Answer::yes, Answer::no}) {
    const Desk desk;
    ScriptedConversation ui;
    ui.stopAtYield = 1;
    ui.answers = {answer};
    const bool stopped = answer == Answer::yes;
    EXPECT_EQ(Reading().Of("a.docx", bytes, ui) == nullptr, stopped);
    EXPECT_EQ(ui.StopRequested(), stopped);
    EXPECT_EQ(ui.Said(), said);
    EXPECT_TRUE(desk.IsClean());
  }
}

TEST(TextFiles, AreReadOrTheBoxSaysHowFarItCame) {
  const std::string read = "old Reading file ...\r\n";
  const std::string made = "Compacting spaces ...\r\nProcessing file ...\r\n";
  const struct {
    const char* name;
    const char* file;
    const char* bytes;
    std::string output;
    std::string said;
    int stopAtYield = 0;
    bool isUtf8 = false;
  } rows[] = {
      {"ANSI", "a.txt", "caf\xE9\r\n", read + made, ""},
      {"UTF-8", "a.txt",
       "\xEF\xBB\xBF"
       "caf\xC3\xA9",
       read + "Converting UTF-8 ...\r\n" + made, "", 0, true},
      {"a UTF-8 page", "a.htm",
       "\xEF\xBB\xBF"
       "caf\xC3\xA9",
       read + made, "", 0, true},
      {"stopped when read", "a.txt", "abcdef", read + "Stopped when reading file.\r\n", "", 1},
      {"stopped later", "a.txt", "abcdef", read + made, "", 2},
      {"no text", "a.txt", "abc", "", "Fatal error: File @\r\ncontains only from 1 to 4 bytes.\n"},
      {"no head", "a.htm", "<!DOCTYPE html>", read,
       "Error: This HTML file does not contain a HEAD section.\n"}};
  for (const auto& row : rows) {
    ScriptedConversation ui;
    ui.output = "old ";
    ui.stopAtYield = row.stopAtYield;
    Reading reading;
    reading.request.encodingChoice = EncodingChoice::adoptDetected;
    const auto document = reading.Of(row.file, row.bytes, ui);
    EXPECT_EQ(document != nullptr, row.said.empty() && row.stopAtYield == 0) << row.name;
    EXPECT_EQ(ui.output, row.output) << row.name;
    EXPECT_EQ(ui.Said(row.file), row.said) << row.name;
    EXPECT_EQ(reading.isUtf8, row.isUtf8) << row.name;
    if (!document) continue;
    EXPECT_EQ(document->ansiText.substr(0, 4), "caf\xE9") << row.name;
  }
}

TEST(Documents, SayWhatTheyWereMadeOf) {
  ScriptedConversation ui;
  Reading reading;
  reading.request.ignoreLists = true;
  reading.request.digest = std::make_shared<const InputDigest>(InputBytes("a.htm", "abcde--f"));
  const auto document = reading.Of("a.htm", "abcde--f", ui);
  EXPECT_EQ(document->source.path, "a.htm");
  EXPECT_EQ(document->source.digest->Text(), "F8816BD763959123F67ABCA758FF1257");
  EXPECT_EQ(document->options, (ReadingOptions{false, true}));
  EXPECT_TRUE(document->skipSpans.inputIsHtml);
  EXPECT_EQ(document->documentText, u"abcde  f");
  EXPECT_EQ(document->ansiText, "abcde  f");
}

}  // namespace
}  // namespace quorvel
