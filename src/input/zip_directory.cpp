#include "input/zip_directory.h"

#include <cstddef>
#include <cstdint>

namespace quorvel {
namespace {

constexpr std::string_view DIRECTORY_RECORD = "PK\x01\x02";
constexpr std::string_view DIRECTORY_END = "PK\x05\x06";

// A number as archives hold it, the lowest byte first.
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

// The archive with a directory of the entry `name` alone. Nothing where it is not in the directory,
// or that is damaged.
std::optional<ArchiveParts> WithOneEntry(std::string_view archive, const std::string& name) {
  constexpr std::size_t RECORD_LENGTH = 46;
  constexpr std::size_t END_LENGTH = 22;
  const std::size_t end = archive.rfind(DIRECTORY_END);
  if (end == std::string_view::npos || archive.size() - end < END_LENGTH) return std::nullopt;
  const std::size_t offset = NumberAt(archive, end + 16, 4);
  if (offset + NumberAt(archive, end + 12, 4) != end) return std::nullopt;
  for (std::size_t place = offset; place + RECORD_LENGTH <= end;) {
    const std::size_t nameLength = NumberAt(archive, place + 28, 2);
    const std::size_t length = RECORD_LENGTH + nameLength + NumberAt(archive, place + 30, 2) +
                               NumberAt(archive, place + 32, 2);
    const std::string_view record = archive.substr(place, length);
    if (!record.starts_with(DIRECTORY_RECORD) || place + length > end) return std::nullopt;
    if (record.substr(RECORD_LENGTH, nameLength) == name) {
      return ArchiveParts{archive.substr(0, offset), DirectoryOfOne(record, offset)};
    }
    place += length;
  }
  return std::nullopt;
}

// Whether an archive has more entries than are given to the library. It keeps all names in a table
// that can be made slow by names that are made for that.
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

std::optional<ArchiveParts> PartsOf(std::string_view archive, const std::string& name) {
  if (HasManyEntries(archive)) return WithOneEntry(archive, name);
  return ArchiveParts{archive, {}};
}

}  // namespace quorvel
