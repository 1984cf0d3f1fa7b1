#include "input/document.h"

#include <gtest/gtest.h>

#include "support/scripted_conversation.h"

namespace quorvel {

TEST(Document, OfAWordProcessorIsToldFromOthers) {
  EXPECT_TRUE(IsWordDocument({"A.DOCX", "PK\x03\x04 56789"}));
  EXPECT_FALSE(IsWordDocument({"a.docx", "PK\x03\x04 5678"}));
  EXPECT_FALSE(IsWordDocument({"a.docx", "PK is no archive"}));
  EXPECT_FALSE(IsWordDocument({"a.txt", "PK\x03\x04 56789"}));
}

using DocumentResult = Result<std::shared_ptr<const Document>>;

TEST(Document, IsReadAndMade) {
  const std::string read = "Reading file ...\r\n";
  const std::string made = "Compacting spaces ...\r\nProcessing file ...\r\n";
  const std::string page = "<!doctype html>\r\n</head>\r\n\r\n<p>caf&eacute;<ul>\r\nx</ul>--no";
  const struct {
    const char* name;
    const char* file;
    std::string bytes, text, phases;
    bool isUtf8 = false, ignoreLists = false;
    int stopAtYield = 0;
    FaultKind fault = FaultKind::stopped;
  } rows[] = {
      {"ANSI", "a.txt", "caf\xE9\r\n\r\n\tno--x\n", "caf\xE9 / no  x ", read + made},
      {"UTF-8, repaired twice", "a.txt", "\xC3\x83\xC2\xA9\xE2\x80\xA0\xE2\x80\x99", "\xE9'",
       read + "Converting UTF-8 ...\r\n" + made, true},
      {"a page by its name, without its lists", "a.htm.txt", page, " caf\xE9 //   no", read + made,
       false, true},
      {"a UTF-8 page, repaired once", "a.htm", "\xC3\x83\xC2\xA9", "\xC3\xA9", read + made, true},
      {"no head", "a.html", "<!doctype html>", "", read, false, false, 0, FaultKind::noHead},
      {"stopped when read", "a.txt", "abc", "", read, false, false, 1},
      {"stopped when decoded", "a.txt", "abc", "", read + made, false, false, 3}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    ScriptedConversation ui;
    ui.stopAtYield = row.stopAtYield;
    const ReadingOptions options = {Reading::windows1252, row.isUtf8, row.ignoreLists};
    const auto text = ReadInputFile(InputBytes(row.file, row.bytes), row.isUtf8, ui);
    const auto document = text ? MakeDocument({row.file, {}, {}}, options, *text, ui, 0)
                               : DocumentResult(text.Error());
    EXPECT_EQ(ui.output, row.phases);
    EXPECT_EQ(bool(document), !row.text.empty());
    if (document) {
      EXPECT_EQ((*document)->narrowText, row.text);
      EXPECT_EQ((*document)->options, options);
    } else {
      EXPECT_EQ(document.Error().kind, row.fault);
    }
  }
}

TEST(Document, SaysWhatItWasMadeOf) {
  const std::pair<const char*, const char*> rows[] = {
      {"a.htm", "&; <script/script> <style/style> <noscript/noscript> <!----> <> "},
      {"a.xml", "<?xml?> <!----> <> "},
      {"a.txt", ""}};
  for (const auto& [path, spans] : rows) {
    SilentProgress nobody;
    const auto digest = std::make_shared<const InputDigest>(InputBytes(path, "\x80--f"));
    const auto document = MakeDocument({path, {}, digest}, {}, "\x80 --f", nobody, 0);
    EXPECT_EQ((*document)->source.path, path);
    EXPECT_EQ((*document)->source.digest, digest);
    EXPECT_EQ((*document)->documentText, u"\u20AC   f");
    std::string found;
    for (const SkipSpan& span : (*document)->skipSpans.pairs) {
      found.append(span.start).append(span.end).append(" ");
    }
    EXPECT_EQ(found, spans);
    EXPECT_EQ((*document)->skipSpans.inputIsHtml, *spans == '&');
    const auto unicode = MakeUnicodeDocument({path, {}, digest}, {}, "f", 0);
    EXPECT_EQ(unicode->skipSpans.pairs.size(), (*document)->skipSpans.pairs.size());
  }
}

}  // namespace quorvel
