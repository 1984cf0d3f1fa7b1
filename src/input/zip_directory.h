// What of a zip archive the zip library is given to read.
//
// The library keeps the names of all entries in a table that names made for it make slow. So of an
// archive with more entries than documents have it is given a directory of one entry alone.
#pragma once

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

// What of the archive's bytes is to be read for the entry `name`. Nothing where it has many entries
// and that one is not in the directory, or the directory is damaged.
[[nodiscard]] std::optional<ArchiveParts> PartsOf(std::string_view archive,
                                                  const std::string& name);

}  // namespace quorvel
