// File-system services besides reading and writing: what exists, where things are stored, folders.
//
// All calls of the core to the file system are in this folder. Paths are the file system's own
// bytes, UTF-8 on Windows. No function throws, except std::bad_alloc.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace quorvel {

// True when a file with this name exists, and also when the system refuses to tell; opening the
// file then shows the reason. Folders do not count.
[[nodiscard]] bool FileExists(const std::string& path);

// True when a folder with this name exists. False also when the system refuses to tell.
[[nodiscard]] bool FolderExists(const std::string& path);

// True for an ordinary file. Reading a device, a pipe or a socket may never end.
[[nodiscard]] bool IsRegularFile(const std::string& path);

// The length in bytes, or nothing when the file cannot be examined.
[[nodiscard]] std::optional<std::int64_t> FileLength(const std::string& path);

// A stamp shows whether a file has changed, without reading it.
struct FileStamp {
  std::int64_t length = -1;    // in bytes
  std::int64_t modified = -1;  // in the system's own ticks

  bool operator==(const FileStamp&) const = default;
};

// The stamp of a file. All files that cannot be examined have the same stamp.
[[nodiscard]] FileStamp StampOf(const std::string& path);

// True when both paths name the same file, by different spellings or links, or would name the same
// file if it were created. Also true for two existing files that the system cannot compare.
[[nodiscard]] bool IsSameFile(const std::string& path, const std::string& other);

// Returns `path` with its folder in canonical form, so that all spellings of a file name in one
// folder compare equal, also through links to the folder. Returns `path` unchanged when the folder
// cannot be examined.
[[nodiscard]] std::string CanonicalPath(const std::string& path);

// Joins `folder` and `name` with the separators of the platform. `name` may contain folders that
// end in "/".
[[nodiscard]] std::string JoinPath(const std::string& folder, const std::string& name);

// The folder in which temporary folders are created: the system's temporary folder, or the root of
// the first fixed drive on Windows. Empty when there is none.
[[nodiscard]] std::string TemporaryBase();

// The path of a data file of the program. It is looked for beside the program, in the installed
// data folder, and in the source tree if the program was built there. If it is in none of them, the
// path beside the program is returned.
[[nodiscard]] std::string DataFilePath(const std::string& name);

// The folder for the user's settings. Falls back to the user's home folder, then to the folder of
// the program.
[[nodiscard]] std::string UserConfigurationFolder();

// Creates the missing parent folders of `path`. A failure shows when the file is opened.
void MakeFoldersFor(const std::string& path);

enum class FolderMaking { made, exists, failed };

// Creates a folder that only its owner can access. `exists` means that a file or folder with this
// name already exists. The parent folder must exist.
[[nodiscard]] FolderMaking MakeFolder(const std::string& path);

// Removes a file or an empty folder. Also returns true when neither exists.
[[nodiscard]] bool RemoveFileOrFolder(const std::string& path);

// The system's description of an error number.
[[nodiscard]] std::string SystemMessage(int errorNumber);

}  // namespace quorvel
