#include "run/document_reading.h"

#include <gtest/gtest.h>

#include "support/scripted_conversation.h"
#include "support/zip_builder.h"
#include "util/utf8.h"

namespace quorvel {
namespace {

std::string Xml(const std::string& text) { return "<w:p><w:t>" + text + "</w:t></w:p>"; }

// A document body with one run, filled up to a size.
std::string BodyOfSize(std::size_t size) {
  std::string xml = Xml("ships");
  xml.resize(size, ' ');
  return ZipArchive({{BODY_ENTRY, xml, ZIP_CM_STORE}});
}

std::shared_ptr<const Document> Obtained(const InputBytes& input, const ReadingRequest& request,
                                         ScriptedConversation& ui, bool& isUtf8) {
  bool macNoticeShown = false;
  return ObtainDocument(input, request, isUtf8, macNoticeShown, ui);
}

const std::string ANYWAY =
    "Error: Invalid checksum found when processing\r\n@\r\n"
    "Do you wish to scan this file anyway?\n";
const std::string NO_BODY = "Error: File @\r\ncontains no document text.\n";
const std::string STOP =
    "Stop: Many different words have been found.\r\nDo you really wish to stop?\n";

TEST(DocumentReading, OfADocumentGivesItsTextOrSaysWhatIsWrong) {
  const std::string isBig =
      "Big file: @\r\nis rather large.  It may take awhile to scan.\r\n"
      "Do you wish to continue?\n";
  const std::string saveAsText =
      "Big file: You could try saving it as a text file\r\n"
      "and applying this program to that file.\n";
  const std::string intact = ZipArchive({{BODY_ENTRY, Xml("caf\xC3\xA9")}});
  const std::string damaged = WithField(intact, CENTRAL_RECORD, 16, 1, 4);
  const struct {
    const char* name;
    std::string bytes, expected;
    std::vector<Answer> answers = {};
    int stopAtYield = 0;
  } rows[] = {
      {"wrong checksum, Enter", damaged, ANYWAY + "= caf\xE9"},
      {"wrong checksum, no", damaged, ANYWAY, {Answer::no}},
      {"no body", ZipArchive({{"content.xml", Xml("ships")}}), ANYWAY + NO_BODY},
      {"at the threshold", BodyOfSize(10485760), "= ships"},
      {"above it, declined by Enter", BodyOfSize(10485761), isBig + saveAsText},
      {"at the limit", BodyOfSize(20971520), isBig + "= ships", {Answer::yes}},
      {"above the limit", BodyOfSize(20971521),
       "File too big: @\r\nis too large to be scanned directly.\r\n\r\n"
       "Recommend saving it as a text file and\r\napplying this program to that file.\n"},
      {"stopped, Enter", intact, STOP, {}, 1},
      {"stopped, no", intact, STOP + "= caf\xE9", {Answer::no}, 1},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    ScriptedConversation ui;
    ui.answers = row.answers;
    ui.stopAtYield = row.stopAtYield;
    bool isUtf8 = false;
    const auto document = Obtained({"a.docx", row.bytes}, {}, ui, isUtf8);
    EXPECT_EQ(isUtf8, document != nullptr);
    EXPECT_EQ(ui.Said("a.docx") + (document != nullptr ? "= " + document->narrowText : ""),
              row.expected);
    EXPECT_TRUE(ui.output.starts_with("Extracting text ...\r\n"));
    EXPECT_EQ(ui.output.ends_with("Processing file ...\r\n"), document != nullptr);
    EXPECT_EQ(ui.StopRequested(), row.expected == STOP);
  }
}

TEST(DocumentReading, AsUnicodeGivesTextOrSaysWhatIsWrong) {
  const auto odt = [](const std::string& paragraph) {
    return ZipArchive({{"content.xml",
                        "<o:document-content xmlns:o=\"urn:oasis:names:tc:opendocument:xmlns:"
                        "office:1.0\" xmlns:t=\"urn:oasis:names:tc:opendocument:xmlns:text:1.0\">"
                        "<o:body><o:text><t:p>" +
                            paragraph + "</t:p></o:text></o:body></o:document-content>"}});
  };
  const struct {
    const char* name;
    const char* file;
    std::string bytes, expected;
    std::vector<Answer> answers = {};
    int stopAtYield = 0;
    std::int64_t lost = 0;
  } rows[] = {
      {"intact", "a.odt", odt("Łódź"), "= Łódź"},
      {"broken XML, Enter", "a.odt", odt("Łódź</t:q>"), ANYWAY + "= Łódź"},
      {"broken XML, no", "a.odt", odt("Łódź</t:q>"), ANYWAY, {Answer::no}},
      {"broken from the start", "a.odt", ZipArchive({{"content.xml", "\x01\x02\x03"}}),
       ANYWAY + NO_BODY},
      {"no body", "a.odt", ZipArchive({{"mimetype", "x"}}), ANYWAY + NO_BODY},
      {"stopped in the archive", "a.odt", odt("Łódź"), "", {}, 1},
      {"stopped, Enter", "a.odt", odt("Łódź"), STOP, {}, 2},
      {"stopped, no", "a.odt", odt("Łódź"), STOP + "= Łódź", {Answer::no}, 2},
      {"a text", "a.txt", "Łódź\nłódź", "= Łódź / łódź"},
      {"wrong bytes", "a.txt", "Łódź \xC5\xC5 a", "= Łódź \uFFFD\uFFFD a", {}, 0, 2},
      {"UTF-16", "a.txt",
       std::string("\xFF\xFE"
                   "A\0\x41\x01",
                   6),
       "= AŁ"},
      {"too short", "a.txt", "abc", "Fatal error: File @\r\ncontains only from 1 to 4 bytes.\n"},
      {"a page without a head", "a.htm", "<!DOCTYPE html>",
       "Error: This HTML file does not contain a HEAD section.\n"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    ScriptedConversation ui;
    ui.answers = row.answers;
    ui.stopAtYield = row.stopAtYield;
    bool isUtf8 = false;
    ReadingRequest request;
    request.options.reading = Reading::unicode;
    ui.output = "old ";
    const auto document = Obtained({row.file, row.bytes}, request, ui, isUtf8);
    EXPECT_EQ(
        ui.Said(row.file) + (document != nullptr ? "= " + EncodeUtf8(document->documentText) : ""),
        row.expected);
    if (row.expected.starts_with("Fatal")) {
      EXPECT_EQ(ui.output, "");
    }
    if (document == nullptr) continue;
    const bool isText = std::string_view(row.file) == "a.txt";
    EXPECT_EQ(ui.output.ends_with("Processing file ...\r\n"), isText);
    EXPECT_EQ(ui.output.find("Extracting text ...\r\n") == std::string::npos, isText);
    EXPECT_EQ(document->lostCharacters, row.lost);
    EXPECT_EQ(document->source.path, row.file);
  }
}

TEST(DocumentReading, OfATextLeavesTheBoxAsFarAsItCame) {
  const std::string read = "old Reading file ...\r\n";
  const std::string made = "Compacting spaces ...\r\nProcessing file ...\r\n";
  const std::tuple<const char*, const char*, std::string, std::string, int> rows[] = {
      {"a.txt", "\xEF\xBB\xBFzz", read + "Converting UTF-8 ...\r\n" + made, "", 0},
      {"a.txt", "abcdef", read + "Stopped when reading file.\r\n", "", 1},
      {"a.txt", "abcdef", read + made, "", 2},
      {"a.txt", "abc", "", "Fatal error: File @\r\ncontains only from 1 to 4 bytes.\n", 0},
      {"a.htm", "<!DOCTYPE html>", read, "Error: This HTML file does not contain a HEAD section.\n",
       0}};
  for (const auto& [file, bytes, output, said, stopAtYield] : rows) {
    SCOPED_TRACE(output + said);
    ScriptedConversation ui;
    ui.output = "old ";
    ui.stopAtYield = stopAtYield;
    const auto digest = std::make_shared<const InputDigest>(InputBytes("a", "abc"));
    bool isUtf8 = false;
    const auto document =
        Obtained({file, bytes}, {EncodingChoice::adoptDetected, {.ignoreLists = true}, digest, {}},
                 ui, isUtf8);
    EXPECT_EQ(ui.output, output);
    EXPECT_EQ(ui.Said(file), said);
    ASSERT_EQ(document != nullptr, isUtf8);
    if (document == nullptr) continue;
    EXPECT_EQ(document->narrowText, "zz");
    EXPECT_EQ(document->options, (ReadingOptions{Reading::windows1252, true, true}));
    EXPECT_EQ(document->source.path, "a.txt");
    EXPECT_EQ(document->source.digest, digest);
  }
}

}  // namespace
}  // namespace quorvel
