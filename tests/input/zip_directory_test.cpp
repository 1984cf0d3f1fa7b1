#include "input/zip_directory.h"

#include <gtest/gtest.h>

#include "support/made_texts.h"
#include "support/zip_builder.h"

namespace quorvel {
namespace {

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

constexpr std::string_view ENTRIES = "what is packed";
const std::string MANY = Repeated(Record("filler"), 1024);  // the largest allowed number

std::string Archive(const std::string& directory) {
  return std::string(ENTRIES) + directory + End(0, directory.size(), ENTRIES.size());
}

TEST(ZipDirectory, OfManyEntriesIsGivenWithOneAlone) {
  EXPECT_EQ(ArchiveDirectory(Archive(MANY)).PartsFor("filler")->directory, "");
  const std::string wanted = Record("wanted");
  const std::string full = Record("wanted", std::string(300, 'x'), std::string(300, 'c'));
  const struct {
    const char* name;
    std::string directory;
    std::string record;  // the record that is returned, or empty for none
    const char* wanted = "wanted";
  } rows[] = {
      {"the first", wanted + MANY, wanted},
      {"with more in its record", MANY + full + wanted, full},
      {"behind such a record", MANY + Record("x", "ab", "cde") + wanted, wanted},
      {"behind one whose name begins so", MANY + Record("wanted2") + wanted, wanted},
      {"of no name", MANY + Record(""), Record(""), ""},
      {"not there", MANY + Record("wante"), ""},
      {"behind what is no record", MANY + "PK\x01\x03" + Record("x").substr(4) + wanted, ""},
      {"cut off", MANY + full.substr(0, full.size() - 1), ""}};
  for (const auto& row : rows) {
    for (const std::size_t behind : {0U, 300U}) {
      const std::string bytes = Archive(row.directory) + std::string(behind, 'z');
      const auto parts = ArchiveDirectory(bytes).PartsFor(row.wanted);
      EXPECT_EQ(parts.has_value(), !row.record.empty()) << row.name;
      if (!parts) continue;
      EXPECT_EQ(parts->entries, ENTRIES) << row.name;
      const std::string expected = row.record + End(1, row.record.size(), ENTRIES.size());
      EXPECT_EQ(parts->directory, expected) << row.name;
    }
  }
}

TEST(ZipDirectory, OfALargeArchiveIsFound) {
  const std::string entries(1U << 24U, 'e');  // the place of the directory takes four bytes
  const std::string directory = MANY + Record("wanted");
  const std::string bytes = entries + directory + End(0, directory.size(), entries.size());
  const auto parts = ArchiveDirectory(bytes).PartsFor("wanted");
  ASSERT_TRUE(parts.has_value());
  EXPECT_EQ(parts->entries.size(), entries.size());
}

TEST(ZipDirectory, IsRefusedWhereItsEndIsDamaged) {
  const std::string bytes = Archive(MANY + Record("wanted"));
  const auto isFound = [](const std::string& archive) {
    return ArchiveDirectory(archive).PartsFor("wanted").has_value();
  };
  EXPECT_TRUE(isFound(bytes));
  EXPECT_FALSE(isFound(bytes.substr(0, bytes.size() - 1)));
  EXPECT_FALSE(isFound(bytes.substr(0, bytes.size() - 22)));
  EXPECT_FALSE(isFound("x" + bytes));
}

}  // namespace
}  // namespace quorvel
