// The files in a folder and in the folders below it.
#pragma once

#include <string>
#include <vector>

#include "util/fault.h"

namespace quorvel {

struct FolderTree {
  std::vector<std::string> files;  // their paths, each beginning with the folder's; in their order
  std::vector<Fault> faults;       // of folders that could not be read, or not to their end
};

// All ordinary files below a folder, those that links name too. A link to a folder is not followed,
// so that no folder is read twice.
[[nodiscard]] FolderTree FilesBelow(const std::string& folder);

}  // namespace quorvel
