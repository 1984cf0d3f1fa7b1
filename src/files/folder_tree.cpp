#include "files/folder_tree.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "files/file_system.h"
#include "files/system_calls.h"

namespace quorvel {
namespace {

namespace fs = std::filesystem;

// Adds the files of one folder to `tree` and its subfolders to `folders`.
void ReadFolder(const fs::path& folder, FolderTree& tree, std::vector<fs::path>& folders) {
  std::error_code error;
  fs::directory_iterator entry(folder, error);
  for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
    const fs::file_status status = entry->symlink_status(error);
    if (error) break;
    const std::string path = FromPath(entry->path());
    if (fs::is_directory(status)) {
      folders.push_back(entry->path());
    } else if (IsRegularFile(path)) {
      tree.files.push_back(path);
    }
  }
  if (error) {
    tree.faults.push_back(SystemFault(FaultKind::notRead, FromPath(folder), NumberOf(error)));
  }
}

}  // namespace

FolderTree FilesBelow(const std::string& folder) {
  FolderTree tree;
  std::vector<fs::path> folders = {ToPath(folder)};
  while (!folders.empty()) {
    const fs::path next = std::move(folders.back());
    folders.pop_back();
    ReadFolder(next, tree, folders);
  }
  std::sort(tree.files.begin(), tree.files.end());
  return tree;
}

}  // namespace quorvel
