// What of a zip archive the zip library is given to read.
//
// The library keeps the names of all entries in a table that names made for it make slow. So of an
// archive with more entries than documents have it is given a directory of one entry alone.
#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace quorvel {

// An archive in two parts, so that another directory can stand behind the entries. The first is a
// view into the archive; where the second is empty, the first is all of it.
struct ArchiveParts {
  std::string_view entries;
  std::string directory;
};

class ArchiveDirectory {
 public:
  // The archive must outlive it.
  explicit ArchiveDirectory(std::string_view archive);

  // Whether the archive has too many entries for the library.
  [[nodiscard]] bool IsLong() const { return isLong_; }

  // What of the archive's bytes is to be read for the entry `name`. Nothing where it has many
  // entries and that one is not in the directory, or the directory is damaged.
  [[nodiscard]] std::optional<ArchiveParts> PartsFor(std::string_view name) const;

 private:
  void FindRecords();

  std::string_view archive_;
  bool isLong_;
  std::size_t offset_ = 0;  // of the directory
  // The first record of each name in a long directory, as far as that is not damaged.
  std::map<std::string_view, std::string_view> records_;
};

}  // namespace quorvel
