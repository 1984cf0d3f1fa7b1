#include "input/zip_archive.h"

#include <gtest/gtest.h>

#include "naive/places.h"
#include "support/made_texts.h"
#include "support/zip_builder.h"

namespace quorvel {
namespace {

constexpr const char* NAME = "word/document.xml";
constexpr const char* LOCAL_RECORD = "PK\x03\x04";
constexpr std::size_t LIMIT = 1000;

// Returns the bytes of the entry, which is unpacked into `room` bytes, or its fault.
std::string Unpacked(const std::string& archive, std::size_t room = 2 * LIMIT) {
  std::string bytes;
  const auto write = [&](std::string_view block) {
    bytes += block;
    return bytes.size() <= room;
  };
  const auto entry = UnpackEntry(InputBytes("a.docx", archive), NAME, LIMIT, write);
  if (!entry) return entry.Error().kind == FaultKind::bodyTooLarge ? "too large" : "no room";
  EXPECT_EQ(entry->length, bytes.size());
  return entry->isDamaged ? "damaged " + bytes : bytes;
}

// An archive whose directory says that its only or last entry is empty. The entry's own record has
// this checksum and these two lengths.
std::string EmptyByDirectory(std::string archive, std::uint64_t checksum, std::uint64_t packed,
                             std::uint64_t length) {
  archive = WithField(WithField(archive, CENTRAL_RECORD, 16, 0, 8), CENTRAL_RECORD, 24, 0, 4);
  archive =
      WithField(WithField(archive, LOCAL_RECORD, 14, checksum, 4), LOCAL_RECORD, 18, packed, 4);
  return WithField(archive, LOCAL_RECORD, 22, length, 4);
}

TEST(ZipArchive, GivesOneEntryOrSaysThatItIsDamaged) {
  const std::string stored = ZipArchive({{NAME, "ships", ZIP_CM_STORE}});
  const std::string central = CENTRAL_RECORD;
  // Looks like the entry's own record except for the signature.
  const std::string mock = std::string(26, '\0') + '\x11' + std::string(3, '\0') + NAME;
  const std::string behindOthers = ZipArchive(
      {{"a", mock, ZIP_CM_STORE}, {NAME + std::string("2"), ""}, {NAME, "ships", ZIP_CM_STORE}});
  // The name is at the start of the archive, so there is no space for a record before it.
  std::string shifted = NAME + EmptyByDirectory(stored, 0, 5, 5);
  const auto shift = static_cast<std::uint64_t>(std::string(NAME).size());
  shifted = WithField(shifted, central, 42, shift, 4);
  shifted = WithField(shifted, "PK\x05\x06", 16, shifted.rfind(central), 4);
  const std::tuple<const char*, std::string, std::string> rows[] = {
      {"stored", stored, "ships"},
      {"behind names that are like its own", behindOthers, "ships"},
      {"empty", ZipArchive({{NAME, ""}}), ""},
      {"as long as is allowed", ZipArchive({{NAME, std::string(LIMIT, 's')}}),
       std::string(LIMIT, 's')},
      {"longer", ZipArchive({{NAME, std::string(LIMIT + 1, 's')}}), "too large"},
      {"longer than it says",
       WithField(ZipArchive({{NAME, std::string(70000, 's')}}), central, 24, 10, 4), "too large"},
#ifndef _WIN32  // whose library neither packs nor unpacks so
      {"packed in a way that documents do not use", ZipArchive({{NAME, "ships", ZIP_CM_BZIP2}}),
       "damaged "},
#endif
      {"no archive", "PK\x03\x04 is how one begins", "damaged "},
      {"no such entry", ZipArchive({{"content.xml", "ships"}}), "damaged "},
      {"one of many, lost", Repeated(CENTRAL_RECORD, 1025), "damaged "},
      {"encrypted", WithField(stored, central, 8, 1, 2), "damaged "},
      {"said to be packed",
       WithField(ZipArchive({{NAME, "\x07ships", ZIP_CM_STORE}}), central, 10, ZIP_CM_DEFLATE, 2),
       "damaged "},
      {"wrong checksum", naive::Replace(stored, "ships", "chips"), "damaged chips"},
      {"no bytes, yet a length", WithField(EmptyByDirectory(stored, 0, 0, 0), central, 24, 1, 4),
       "damaged "},
      {"no bytes, yet a checksum", WithField(EmptyByDirectory(stored, 0, 0, 0), central, 16, 1, 4),
       "damaged "},
      {"no bytes, also by its record", EmptyByDirectory(stored, 0xFFFFFFFF, 0, 0), ""},
      {"packed bytes by its record", EmptyByDirectory(stored, 0, 1, 0), "damaged "},
      {"a length by its record", EmptyByDirectory(stored, 0, 0, 0x01000000), "damaged "},
      {"the same behind others", EmptyByDirectory(behindOthers, 0, 5, 5), "damaged "},
      {"the same behind its name", shifted, "damaged "},
  };
  for (const auto& [name, archive, expected] : rows) EXPECT_EQ(Unpacked(archive), expected) << name;
  EXPECT_EQ(Unpacked(stored, 4), "no room");
}

}  // namespace
}  // namespace quorvel
