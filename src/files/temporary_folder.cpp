#include "files/temporary_folder.h"

#include <exception>
#include <utility>
#include <vector>

#include "files/file_system.h"

namespace quorvel {
// Whether a name is free is told by making the folder: between a test and the
// making, another program could take it.
std::string CreateTemporaryFolder(const std::string& base, std::string_view tag) {
  constexpr int LAST_NUMBER = 999;
  constexpr std::size_t DIGITS = 3;
  if (base.empty()) return {};
  for (int n = 1; n <= LAST_NUMBER; ++n) {
    const std::string number = std::to_string(n);
    std::string name(tag);
    name.append(DIGITS - number.size(), '0').append(number);
    std::string path = JoinPath(base, name);
    switch (MakeFolder(path)) {
      case FolderMaking::made:
        return path;
      case FolderMaking::exists:
        break;
      case FolderMaking::failed:
        return {};
    }
  }
  return {};
}

std::optional<Fault> RemoveTemporaryFolder(const std::string& folder, const std::string& entry) {
  const std::string file = JoinPath(folder, entry);
  if (!RemoveFileOrFolder(file)) return Fault{FaultKind::fileNotRemoved, file, {}};
  std::vector<std::string> folders;
  for (std::size_t end = entry.rfind('/'); end != std::string::npos && end > 0;
       end = entry.rfind('/', end - 1)) {
    folders.push_back(JoinPath(folder, entry.substr(0, end)));
  }
  folders.push_back(folder);
  for (const std::string& path : folders) {
    if (!RemoveFileOrFolder(path)) return Fault{FaultKind::folderNotRemoved, path, {}};
  }
  return std::nullopt;
}

TemporaryFolder::TemporaryFolder(std::string_view tag, std::string entry)
    : entry_(std::move(entry)), path_(CreateTemporaryFolder(TemporaryBase(), tag)) {}

TemporaryFolder::TemporaryFolder(TemporaryFolder&& other) noexcept
    : entry_(std::move(other.entry_)), path_(std::exchange(other.path_, {})) {}

TemporaryFolder::~TemporaryFolder() {
  try {
    // Who wants to know what stayed has called it before.
    [[maybe_unused]] const std::optional<Fault> stayed = Remove();
  } catch (const std::exception&) {
    // Nothing may leave from here, and there is nobody left to tell.
    return;
  }
}

std::string TemporaryFolder::EntryPath() const { return JoinPath(path_, entry_); }

std::optional<Fault> TemporaryFolder::Remove() {
  const std::string path = std::exchange(path_, {});
  if (path.empty()) return std::nullopt;
  return RemoveTemporaryFolder(path, entry_);
}

}  // namespace quorvel
