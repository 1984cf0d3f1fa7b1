// The file-system services that the program needs beside reading and writing: what there is, where
// things are kept, folders.
//
// Every call of the core to the file system stands in this folder. Paths are the file system's own
// bytes, UTF-8 on Windows. Nothing here throws, but for want of memory.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace quorvel {

// True when a file of that name exists, or when the system will not say: what is there is
// then told by opening it. A folder does not count.
[[nodiscard]] bool FileExists(const std::string& path);

[[nodiscard]] bool FolderExists(const std::string& path);

// True for an ordinary file: no device, pipe or socket, reading which may never end.
[[nodiscard]] bool IsRegularFile(const std::string& path);

// The length in bytes; nothing when the file cannot be looked at.
[[nodiscard]] std::optional<std::int64_t> FileLength(const std::string& path);

// Tells, without reading it, whether a file has been written since.
struct FileStamp {
  std::int64_t length = -1;    // in bytes
  std::int64_t modified = -1;  // in the system's own ticks

  bool operator==(const FileStamp&) const = default;
};

// The stamp of a file; the same for all files that cannot be looked at.
[[nodiscard]] FileStamp StampOf(const std::string& path);

// Whether both paths name one file, be it by another spelling or a link, or would if it were made.
// True also for two existing files of which the system cannot tell.
[[nodiscard]] bool IsSameFile(const std::string& path, const std::string& other);

// The path with its folder spelled as the system spells it: the same for all spellings of a name in
// a folder, also by links to that folder. Itself where the folder cannot be looked at.
[[nodiscard]] std::string OneSpelling(const std::string& path);

// The path of `name`, which may hold folders that end in "/", below `folder`, with
// the separators that users of the platform know.
[[nodiscard]] std::string JoinPath(const std::string& folder, const std::string& name);

// The folder below which temporary folders are made: the system's own for such,
// on Windows the root of the first fixed drive. Empty when there is none.
[[nodiscard]] std::string TemporaryBase();

// The path of a file that comes with the program: beside the program, else in the
// installed data folder, else in the source tree of a program that was built there.
// Where it is in none of them, the path that it would have beside the program.
[[nodiscard]] std::string DataFilePath(const std::string& name);

// The folder in which programs keep what this user has set; where the system names
// none the user's home folder or, failing that too, the program's own.
[[nodiscard]] std::string UserConfigurationFolder();

// Makes the folders above `path` that are missing; what fails shows when the file is opened.
void MakeFoldersFor(const std::string& path);

enum class FolderMaking { made, exists, failed };

// Makes a folder that only its owner can look into. `exists` when a file or folder
// of that name is there already; the folder above it must exist.
[[nodiscard]] FolderMaking MakeFolder(const std::string& path);

// Removes a file or an empty folder. True also when there is none of that name.
[[nodiscard]] bool RemoveFileOrFolder(const std::string& path);

// The system's description of what failed, by its number.
[[nodiscard]] std::string SystemMessage(int errorNumber);

}  // namespace quorvel
