#include "input/zip_directory.h"

#include <cstddef>
#include <cstdint>

namespace quorvel {
namespace {

constexpr std::string_view DIRECTORY_RECORD = "PK\x01\x02";
constexpr std::string_view DIRECTORY_END = "PK\x05\x06";

// A little-endian number of `width` bytes.
std::size_t NumberAt(std::string_view archive, std::size_t place, std::size_t width) {
  std::size_t number = 0;
  for (std::size_t i = width; i-- > 0;) {
    number = number << 8U | static_cast<std::uint8_t>(archive[place + i]);
  }
  return number;
}

void AppendNumber(std::string& bytes, std::size_t number, std::size_t width) {
  for (; width > 0; --width, number >>= 8U) bytes += static_cast<char>(number & 0xFFU);
}

std::string DirectoryOfOne(std::string_view record, std::size_t offset) {
  std::string directory(record);
  directory.append(DIRECTORY_END).append(4, '\0');
  AppendNumber(directory, 1, 2);
  AppendNumber(directory, 1, 2);
  AppendNumber(directory, record.size(), 4);
  AppendNumber(directory, offset, 4);
  return directory.append(2, '\0');
}

// True when an archive has too many entries for the library.
bool HasManyEntries(std::string_view archive) {
  constexpr int MOST_ENTRIES = 1024;
  int entries = 0;
  for (std::size_t place = archive.find(DIRECTORY_RECORD); place != std::string_view::npos;
       place = archive.find(DIRECTORY_RECORD, place + 1)) {
    if (++entries > MOST_ENTRIES) return true;
  }
  return false;
}

}  // namespace

ArchiveDirectory::ArchiveDirectory(std::string_view archive)
    : archive_(archive), isLong_(HasManyEntries(archive)) {
  if (isLong_) FindRecords();
}

void ArchiveDirectory::FindRecords() {
  constexpr std::size_t RECORD_LENGTH = 46;
  constexpr std::size_t END_LENGTH = 22;
  constexpr std::size_t MOST_RECORDS = 1000000;  // limits the memory used
  const std::size_t end = archive_.rfind(DIRECTORY_END);
  if (end == std::string_view::npos || archive_.size() - end < END_LENGTH) return;
  offset_ = NumberAt(archive_, end + 16, 4);
  if (offset_ + NumberAt(archive_, end + 12, 4) != end) return;
  for (std::size_t place = offset_;
       place + RECORD_LENGTH <= end && records_.size() < MOST_RECORDS;) {
    const std::size_t nameLength = NumberAt(archive_, place + 28, 2);
    const std::size_t length = RECORD_LENGTH + nameLength + NumberAt(archive_, place + 30, 2) +
                               NumberAt(archive_, place + 32, 2);
    const std::string_view record = archive_.substr(place, length);
    if (!record.starts_with(DIRECTORY_RECORD) || place + length > end) return;
    records_.emplace(record.substr(RECORD_LENGTH, nameLength), record);
    place += length;
  }
}

std::optional<ArchiveParts> ArchiveDirectory::PartsFor(std::string_view name) const {
  if (!isLong_) return ArchiveParts{archive_, {}};
  const auto found = records_.find(name);
  if (found == records_.end()) return std::nullopt;
  return ArchiveParts{archive_.substr(0, offset_), DirectoryOfOne(found->second, offset_)};
}

}  // namespace quorvel
