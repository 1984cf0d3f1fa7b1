#include "unicode/packed_documents.h"

#include <gtest/gtest.h>

#include "support/scripted_conversation.h"
#include "support/zip_builder.h"

namespace quorvel {
namespace {

// The parts, each followed by "|", after "damaged " if they are; or the kind of fault.
std::string UnpackedOrFault(const std::string& archive, PackedKind kind, bool notes = false,
                            std::uint64_t limit = 1000) {
  SilentProgress nobody;
  const BodyLimits limits = {.hard = limit};
  const auto unpacked = UnpackTextParts({"a", archive}, kind, {.notes = notes}, limits, nobody);
  if (!unpacked) return unpacked.Error().kind == FaultKind::bodyTooLarge ? "too large" : "stopped";
  EXPECT_EQ(unpacked->kind, kind);
  std::uint64_t length = 0;
  std::string shown = unpacked->isDamaged ? "damaged " : "";
  for (const std::string& part : unpacked->parts) {
    shown += part + "|";
    length += part.size();
  }
  EXPECT_EQ(unpacked->length, length);
  return shown;
}

std::string Relations(const std::string& type, const std::string& target) {
  return "<Relationships><Relationship Type='http://x/styles' Target='s'/><Relationship "
         "Type='http://x/" +
         type + "' TargetMode='External' Target='e'/><Relationship Type='http://x/" + type +
         "' Target='" + target + "'/></Relationships>";
}

TEST(PackedDocuments, AreToldFromOthers) {
  EXPECT_EQ(PackedKindOf({"A.DOCX", "PK\x03\x04 56789"}), PackedKind::docx);
  EXPECT_EQ(PackedKindOf({"a.odt", "PK\x03\x04 56789"}), PackedKind::odt);
  EXPECT_EQ(PackedKindOf({"a.Epub", "PK\x03\x04 56789"}), PackedKind::epub);
  EXPECT_EQ(PackedKindOf({"a.epub", "PK\x03\x04 5678"}), std::nullopt);
  EXPECT_EQ(PackedKindOf({"a.odt", "PK is no archive"}), std::nullopt);
  EXPECT_EQ(PackedKindOf({"a.zip", "PK\x03\x04 56789"}), std::nullopt);
}

TEST(PackedDocuments, OfWordsGiveTheirBodyAndNotes) {
  const std::vector<ZipEntry> usual = {{"word/document.xml", "body"}};
  const std::vector<ZipEntry> moved = {
      {"_rels/.rels", Relations("officeDocument", "/w/d%2ex")},
      {"w/d.x", "body"},
      {"w/_rels/d.x.rels", Relations("footnotes", "../f/notes") + "<!-- damage"},
      {"f/notes", "notes"}};
  const std::vector<ZipEntry> lost = {{"_rels/.rels", Relations("officeDocument", "d")}};
  EXPECT_EQ(UnpackedOrFault(ZipArchive(usual), PackedKind::docx, true), "body|");
  EXPECT_EQ(UnpackedOrFault(ZipArchive(moved), PackedKind::docx), "body|");
  EXPECT_EQ(UnpackedOrFault(ZipArchive(moved), PackedKind::docx, true), "body|notes|");
  EXPECT_EQ(UnpackedOrFault(ZipArchive(lost), PackedKind::docx), "damaged ");
  EXPECT_EQ(UnpackedOrFault(ZipArchive({{"content.xml", "body"}}), PackedKind::odt), "body|");
  EXPECT_EQ(UnpackedOrFault("PK\x03\x04 is no archive", PackedKind::odt), "damaged ");
}

TEST(PackedDocuments, AreLimitedInAllTheirPartsAndCanBeStopped) {
  const std::string archive =
      ZipArchive({{"word/document.xml", std::string(600, 'b')},
                  {"word/_rels/document.xml.rels", Relations("endnotes", "e")},
                  {"word/e", std::string(400, 'n')}});
  EXPECT_EQ(UnpackedOrFault(archive, PackedKind::docx, true).size(), 1002U);
  EXPECT_EQ(UnpackedOrFault(archive, PackedKind::docx, true, 999), "too large");
  EXPECT_EQ(UnpackedOrFault(archive, PackedKind::docx, false, 999).size(), 601U);
  ScriptedConversation ui;
  ui.stopAtYield = 1;
  const auto unpacked = UnpackTextParts({"a.docx", archive}, PackedKind::docx, {}, {}, ui);
  EXPECT_EQ(unpacked.Error().kind, FaultKind::stopped);
}

// A book with these chapters in its manifest and the spine.
std::vector<ZipEntry> Book(const std::string& manifest, const std::string& spine) {
  return {{"META-INF/container.xml", "<container><rootfile full-path='O/p.opf'/></container>"},
          {"O/p.opf",
           "<package><manifest>" + manifest + "</manifest><spine>" + spine + "</spine></package>"},
          {"O/one.xhtml", "1"},
          {"O/t/two \xC5\x82.html", "2"},
          {"three.xhtml", "3"},
          {"O/%%2g%g2%2", "4"}};
}

TEST(PackedDocuments, OfBooksGiveTheChaptersInTheirOrder) {
  const std::string manifest =
      "<item id='a' href='one.xhtml' media-type='application/xhtml+xml'/>"
      "<item id='b' href='t/two%20%C5%82.html#x' media-type='text/html'/>"
      "<item id='c' href='./t/../../three.xhtml' media-type='application/xhtml+xml'/>"
      "<item id='p' href='p.svg' media-type='image/svg+xml'/>"
      "<item id='o' href='./t/../one.xhtm%6C' media-type='text/x-oeb1-document'/>"
      "<item id='m' href='missing.xhtml' media-type='application/xhtml+xml'/>"
      "<item id='q' href='%25%2g%g2%2' media-type='application/xhtml+xml'/>";
  const std::pair<const char*, const char*> rows[] = {
      {"<itemref idref='c'/><itemref idref='a' linear='no'/><itemref idref='b'/>", "3|1|2|"},
      {"<itemref idref='p'/><itemref idref='a'/><itemref idref='a'/>", "1|"},
      {"<itemref idref='m'/><itemref idref='a'/>", "damaged 1|"},
      {"<itemref idref='q'/><itemref idref='o'/>", "4|1|"},
      {"<itemref idref='unknown'/><itemref idref='a'/>", "damaged 1|"},
      {"<itemref idref='a'/></damage>", "damaged 1|"},
      {"", "damaged "}};
  for (const auto& [spine, parts] : rows) {
    EXPECT_EQ(UnpackedOrFault(ZipArchive(Book(manifest, spine)), PackedKind::epub), parts) << spine;
  }
  auto encrypted = Book(manifest, "<itemref idref='a'/><itemref idref='b'/>");
  encrypted.push_back(
      {"META-INF/encryption.xml", "<e><CipherReference URI='O/t/two%20%C5%82.html'/></e>"});
  EXPECT_EQ(UnpackedOrFault(ZipArchive(encrypted), PackedKind::epub), "damaged 1|");
  EXPECT_EQ(UnpackedOrFault(ZipArchive({{"mimetype", ""}}), PackedKind::epub), "damaged ");
}

TEST(PackedDocuments, WithManyEntriesAreReadAsWell) {
  std::string manifest;
  std::string spine;
  std::vector<ZipEntry> pages;
  std::string expected;
  for (int i = 1500; i-- > 0;) {
    const std::string id = "c" + std::to_string(i);
    manifest += "<item id='" + id + "' href='" + id + "' media-type='text/html'/>";
    spine += "<itemref idref='" + id + "'/>";
    pages.push_back({"O/" + id, id, ZIP_CM_STORE});
    expected += id + "|";
  }
  std::vector<ZipEntry> book = Book(manifest, spine);
  book.insert(book.end(), pages.begin(), pages.end());
  EXPECT_EQ(UnpackedOrFault(ZipArchive(book), PackedKind::epub, false, 100000), expected);
}

}  // namespace
}  // namespace quorvel
