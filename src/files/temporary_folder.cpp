#include "files/temporary_folder.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <exception>
#include <filesystem>
#include <utility>

#include "files/file_system.h"
#include "files/system_calls.h"

namespace quorvel {
namespace {

// Removes the file and its parent folders, up to and including the one whose path has
// `folderLength` bytes. Allocates no memory, so that a run without memory leaves nothing behind.
std::optional<Fault> RemoveUpTo(std::string path, std::size_t folderLength) {
  constexpr char SEPARATOR = static_cast<char>(std::filesystem::path::preferred_separator);
  if (!RemoveFileOrFolder(path)) return Fault{FaultKind::fileNotRemoved, path, {}};
  while (path.size() > folderLength) {
    path.resize(std::max(path.rfind(SEPARATOR), folderLength));
    if (!RemoveFileOrFolder(path)) return Fault{FaultKind::folderNotRemoved, path, {}};
  }
  return std::nullopt;
}

}  // namespace

// Creating the folder is the test whether its name is free. A separate test would leave time for
// another program to take the name.
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
  return RemoveUpTo(JoinPath(folder, entry), folder.size());
}

// Delegates, so that the destructor removes the folder if anything below throws.
TemporaryFile::TemporaryFile(std::string_view tag, const std::string& entry)
    : TemporaryFile(CreateTemporaryFolder(TemporaryBase(), tag)) {
  if (!hasFolder_) return;
  path_ = JoinPath(folder_, entry);
  MakeFoldersFor(path_);
  handle_ = OpenFile(ToPath(path_), O_RDWR | O_CREAT | O_EXCL, true);
  // If removal fails now, it is tried again in the destructor or in Remove, which reports the
  // failure.
  if (!RemoveTemporaryFolder(folder_, entry)) folder_.clear();
}

TemporaryFile::TemporaryFile(std::string folder)
    : folder_(std::move(folder)), hasFolder_(!folder_.empty()) {}

TemporaryFile::~TemporaryFile() {
  try {
    // A caller that needs the fault has called Remove() before.
    [[maybe_unused]] const std::optional<Fault> stayed = Remove();
  } catch (const std::exception&) {
    // A destructor must not throw, and nobody is left to receive the error.
    return;
  }
}

bool TemporaryFile::Write(std::string_view bytes) const {
  return handle_ >= 0 && WriteBytes(handle_, bytes);
}

Result<std::string> TemporaryFile::ReadBack(std::uint64_t limit) const {
  const auto end = ::lseek(handle_, 0, SEEK_END);
  if (end < 0 || ::lseek(handle_, 0, SEEK_SET) != 0) {
    return SystemFault(FaultKind::notRead, path_, errno);
  }
  std::string bytes(std::min(static_cast<std::uint64_t>(end), limit), '\0');
  if (ReadBytes(handle_, bytes.data(), bytes.size()) != std::ssize(bytes)) {
    return SystemFault(FaultKind::notRead, path_, errno);
  }
  return bytes;
}

std::optional<Fault> TemporaryFile::Remove() {
  if (handle_ >= 0) ::close(std::exchange(handle_, -1));
  std::string folder = std::exchange(folder_, {});
  if (folder.empty()) return std::nullopt;
  const std::size_t length = folder.size();
  return RemoveUpTo(std::move(path_.empty() ? folder : path_), length);
}

}  // namespace quorvel
