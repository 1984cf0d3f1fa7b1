// Selects the part of a zip archive that the zip library reads.
//
// The library keeps the names of all entries in a hash table that malicious names can make slow. So
// for an archive with more entries than real documents have, the library receives a directory with
// a single entry.
#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace quorvel {

// An archive in two parts, so that its directory can be replaced. `entries` is a view into the
// archive. When `directory` is empty, `entries` is the whole archive.
struct ArchiveParts {
  std::string_view entries;
  std::string directory;
};

class ArchiveDirectory {
 public:
  // `archive` must outlive the object.
  explicit ArchiveDirectory(std::string_view archive);

  // True when the archive has too many entries for the library.
  [[nodiscard]] bool IsLong() const { return isLong_; }

  // Returns the parts of the archive to read for the entry `name`. Returns nothing when the archive
  // has too many entries and either `name` is not among them or the directory is damaged.
  [[nodiscard]] std::optional<ArchiveParts> PartsFor(std::string_view name) const;

 private:
  void FindRecords();

  std::string_view archive_;
  bool isLong_;
  std::size_t offset_ = 0;  // of the directory
  // The first record of each name in a long directory, as far as the directory is valid.
  std::map<std::string_view, std::string_view> records_;
};

}  // namespace quorvel
