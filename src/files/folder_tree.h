// Finds the files in a folder and its subfolders.
#pragma once

#include <string>
#include <vector>

#include "util/fault.h"

namespace quorvel {

struct FolderTree {
  std::vector<std::string> files;  // paths that begin with the folder's path; sorted
  std::vector<Fault> faults;       // of folders that could not be read completely
};

// Returns all ordinary files below `folder`, including those named by links. Links to folders are
// not followed, so that no folder is read twice.
[[nodiscard]] FolderTree FilesBelow(const std::string& folder);

}  // namespace quorvel
