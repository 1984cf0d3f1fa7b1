// The file-system services that the program needs: tests, reading, and writing
// without ever losing the file that was there.
//
// Every call of the core to the file system stands behind this header. Paths are the
// file system's own bytes, UTF-8 on Windows. Nothing here throws, but for want of memory.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

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

// Whether both paths name one file, be it by another spelling or a link. True also for
// two existing files of which the system cannot tell.
[[nodiscard]] bool IsSameFile(const std::string& path, const std::string& other);

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

// What came of reading a file: `error` is the system's description, empty on success.
struct FileRead {
  std::string bytes;
  std::string error;
  int errorNumber = 0;
};

// More than any file that can be worked on: reading one that grows all the time ends there.
inline constexpr std::uint64_t MOST_BYTES_READ = std::uint64_t{1} << 31U;

// Reads the first `limit` bytes of a file, by default as good as the whole file.
[[nodiscard]] FileRead ReadFileBytes(const std::string& path,
                                     std::uint64_t limit = MOST_BYTES_READ);

// Hands the bytes of a file to `take`, front to back, `chunkLength` at a time and
// the rest last, as long as that gives true. The system's number of what failed, which for more
// than MOST_BYTES_READ is EFBIG; 0 on success.
[[nodiscard]] int ReadFileInChunks(const std::string& path, std::size_t chunkLength,
                                   const std::function<bool(std::string_view)>& take);

// Lets a write beyond the file size that the user may have set fail like one on a full
// disk; otherwise it ends the program. For the start of a program.
void LetOversizedWritesFail();

// A file being written. The bytes go to a new file in the target's folder, which
// takes the target's place only in Commit: until then, and after any failure, an
// existing target is as it was. A link is followed; a device or pipe is written
// directly, for it has no content to lose.
class OutputFile {
 public:
  explicit OutputFile(const std::string& path);

  // Removes the new file, unless it was committed.
  ~OutputFile();

  OutputFile(const OutputFile&) = delete;
  OutputFile& operator=(const OutputFile&) = delete;

  // Appends bytes. False once anything has failed since the file was opened.
  bool Write(std::string_view bytes);

  // Puts the written file in the target's place; it is on the disk by then, so that a
  // power cut leaves the old or the new file. False when anything failed.
  [[nodiscard]] bool Commit();

  // The same for a file that is not needed for long: without the wait for the disk.
  [[nodiscard]] bool CommitPassing();

  // The system's description of the first failure; empty as long as there is none.
  [[nodiscard]] const std::string& Error() const { return error_; }

 private:
  void Open();
  void OpenBeside(bool replaces);
  void Sync();
  void CloseHandle();
  void Fail(int errorNumber);

  std::filesystem::path target_;
  std::filesystem::path temporary_;  // empty when the target is written directly
  std::string error_;
  int handle_ = -1;
};

}  // namespace quorvel
