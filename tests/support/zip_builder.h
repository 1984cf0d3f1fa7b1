// Makes zip archives in memory, whose bytes a test can then damage.
#pragma once

#include <gtest/gtest.h>
#include <zip.h>

namespace quorvel {

struct ZipEntry {
  std::string name;
  std::string bytes;
  zip_int32_t method = ZIP_CM_DEFLATE;
};

inline std::string ZipArchive(const std::vector<ZipEntry>& entries) {
  zip_source_t* target = zip_source_buffer_create(nullptr, 0, 0, nullptr);
  zip_source_keep(target);
  zip_t* archive = zip_open_from_source(target, ZIP_TRUNCATE, nullptr);
  for (const ZipEntry& entry : entries) {
    zip_source_t* source = zip_source_buffer(archive, entry.bytes.data(), entry.bytes.size(), 0);
    const auto index = static_cast<zip_uint64_t>(
        zip_file_add(archive, entry.name.c_str(), source, ZIP_FL_OVERWRITE));
    zip_set_file_compression(archive, index, entry.method, 0);
  }
  EXPECT_EQ(zip_close(archive), 0);
  zip_stat_t status;
  EXPECT_EQ(zip_source_stat(target, &status), 0);
  std::string bytes(status.size, '\0');
  zip_source_open(target);
  EXPECT_EQ(zip_source_read(target, bytes.data(), bytes.size()), std::ssize(bytes));
  zip_source_close(target);
  zip_source_free(target);
  return bytes;
}

// `value` as `width` bytes in little-endian order, like the numbers in archives.
inline std::string LittleEndian(std::uint64_t value, int width) {
  std::string bytes;
  for (; width > 0; --width, value >>= 8U) bytes += static_cast<char>(value & 0xFFU);
  return bytes;
}

// Overwrites the number at `offset` in the last record with this signature.
inline std::string WithField(std::string archive, std::string_view signature, std::size_t offset,
                             std::uint64_t value, int width) {
  const std::size_t record = archive.rfind(signature);
  EXPECT_NE(record, std::string::npos);
  return archive.replace(record + offset, static_cast<std::size_t>(width),
                         LittleEndian(value, width));
}

inline constexpr const char* CENTRAL_RECORD = "PK\x01\x02";

}  // namespace quorvel
