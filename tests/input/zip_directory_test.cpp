#include "input/zip_directory.h"

#include <gtest/gtest.h>

#include "support/made_texts.h"
#include "support/zip_builder.h"

namespace quorvel {
namespace {

constexpr int MOST_FOR_THE_LIBRARY = 1024;

std::string Record(const std::string& name, const std::string& extra = "",
                   const std::string& comment = "") {
  return CENTRAL_RECORD + std::string(24, 'n') + LittleEndian(name.size(), 2) +
         LittleEndian(extra.size(), 2) + LittleEndian(comment.size(), 2) + std::string(12, 'n') +
         name + extra + comment;
}

std::string End(std::size_t entries, std::size_t length, std::size_t offset) {
  return "PK\x05\x06" + std::string(4, '\0') + LittleEndian(entries, 2) + LittleEndian(entries, 2) +
         LittleEndian(length, 4) + LittleEndian(offset, 4) + std::string(2, '\0');
}

struct Archive {
  std::string entries = "what is packed";
  std::string directory = Repeated(Record("filler"), MOST_FOR_THE_LIBRARY);

  [[nodiscard]] std::string Bytes() const {
    return entries + directory + End(0, directory.size(), entries.size());
  }
};

TEST(ZipDirectory, OfManyEntriesIsGivenWithOneAlone) {
  const Archive many;  // not yet too many
  EXPECT_EQ(PartsOf(many.Bytes(), "filler")->directory, "");
  const std::string wanted = Record("wanted");
  const std::string full = Record("wanted", std::string(300, 'x'), std::string(300, 'c'));
  const struct {
    const char* name;
    std::string directory;
    std::string record;  // the one that is given; empty for none
    const char* wanted = "wanted";
  } rows[] = {
      {"the first", wanted + many.directory, wanted},
      {"the last", many.directory + wanted, wanted},
      {"with more in its record", many.directory + full + wanted, full},
      {"behind such a record", many.directory + Record("x", "ab", "cde") + wanted, wanted},
      {"behind one whose name begins so", many.directory + Record("wanted2") + wanted, wanted},
      {"of no name", many.directory + Record(""), Record(""), ""},
      {"not there", many.directory + Record("wante"), ""},
      {"behind what is no record", many.directory + "PK\x01\x03" + Record("x").substr(4) + wanted,
       ""},
      {"cut off", many.directory + full.substr(0, full.size() - 1), ""}};
  for (const auto& row : rows) {
    Archive archive;
    archive.directory = row.directory;
    for (const std::size_t behind : {0U, 300U}) {
      const std::string bytes = archive.Bytes() + std::string(behind, 'z');
      const auto parts = PartsOf(bytes, row.wanted);
      EXPECT_EQ(parts.has_value(), !row.record.empty()) << row.name;
      if (!parts) continue;
      EXPECT_EQ(parts->entries, archive.entries) << row.name;
      EXPECT_EQ(parts->directory, row.record + End(1, row.record.size(), archive.entries.size()))
          << row.name;
    }
  }
}

TEST(ZipDirectory, IsRefusedWhereItsEndIsDamaged) {
  Archive archive;
  archive.directory += Record("wanted");
  const std::string bytes = archive.Bytes();
  EXPECT_TRUE(PartsOf(bytes, "wanted"));
  EXPECT_FALSE(PartsOf(bytes.substr(0, bytes.size() - 1), "wanted"));
  EXPECT_FALSE(PartsOf(archive.entries + archive.directory, "wanted"));
  EXPECT_FALSE(PartsOf("x" + bytes, "wanted"));
}

TEST(ZipDirectory, IsReadWithNumbersOfAllTheirBytes) {
  Archive archive;
  archive.entries.resize(0x01020304, 'p');
  archive.directory = Repeated(Record("filler", std::string(16500, 'e')), MOST_FOR_THE_LIBRARY);
  ASSERT_GT(archive.directory.size(), 0x01000000U);
  archive.directory += Record("wanted");
  const auto parts = PartsOf(archive.Bytes(), "wanted");
  ASSERT_TRUE(parts);
  EXPECT_EQ(parts->directory, Record("wanted") + End(1, Record("wanted").size(), 0x01020304));
}

}  // namespace
}  // namespace quorvel
