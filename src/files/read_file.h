// Reading files: each file is opened once and read into memory.
//
// Only ordinary files are read. A device, a pipe or a socket may never end or may block, so it is
// not even opened. Paths are the file system's own bytes, UTF-8 on Windows. A failed read is a
// fault, never an empty text. No function throws, except std::bad_alloc.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "files/file_system.h"
#include "util/fault.h"
#include "util/progress.h"

namespace quorvel {

// Reads the first `limit` bytes of an ordinary file, also of a system file that reports a shorter
// length. Faults: `missing`, `notAFile`, `notOpened`, `notRead`.
[[nodiscard]] Result<std::string> ReadFileBytes(const std::string& path, std::uint64_t limit);

// The bytes of an input. The text, the digest and everything else are made from them, so they
// always belong to the same version of the file. Copies share the bytes.
class InputBytes {
 public:
  InputBytes() = default;
  InputBytes(std::string path, const FileStamp& stamp, std::shared_ptr<const char[]> bytes,
             std::size_t length);

  // Bytes that are already in memory.
  InputBytes(std::string path, std::string_view bytes);

  [[nodiscard]] const std::string& Path() const { return path_; }

  // The stamp of the file just before it was read.
  [[nodiscard]] const FileStamp& Stamp() const { return stamp_; }

  [[nodiscard]] std::string_view View() const { return {bytes_.get(), length_}; }

 private:
  std::string path_;
  FileStamp stamp_;
  std::shared_ptr<const char[]> bytes_;
  std::size_t length_ = 0;
};

// An ordinary file opened for reading. After a fault nothing more is read.
class FileToRead {
 public:
  explicit FileToRead(const std::string& path);
  ~FileToRead();
  FileToRead(const FileToRead&) = delete;
  FileToRead& operator=(const FileToRead&) = delete;

  // Faults: `missing` (also for a folder), `notAFile`, `notOpened`, `notRead`.
  [[nodiscard]] const std::optional<Fault>& Error() const { return fault_; }

  // The length in bytes when the file was opened.
  [[nodiscard]] std::uint64_t Length() const { return length_; }

  // Reads up to `length` bytes and returns their number. It is smaller than `length` only at the
  // end of the file or after a fault.
  [[nodiscard]] std::size_t Read(char* into, std::size_t length);

  // Returns the first `length` bytes, or fewer when the file is shorter. Must be called before
  // Read. The view is valid until the object is destroyed.
  [[nodiscard]] std::string_view Begin(std::size_t length);

  // Reads the file to its end. Bytes returned by Begin are not read again. Returns `stopped` when
  // `goesOn`, which is called from time to time, returns false.
  [[nodiscard]] Result<InputBytes> ReadAll(const FileStamp& stamp,
                                           const std::function<bool()>& goesOn);

 private:
  void Open(const std::filesystem::path& place);

  std::string path_;
  std::optional<Fault> fault_;
  int handle_ = -1;
  std::uint64_t length_ = 0;
  std::string begin_;
};

// The maximum length of an input in bytes: each position must fit in a 32-bit number.
inline constexpr std::uint64_t LONGEST_INPUT = std::numeric_limits<std::int32_t>::max() - 1;

// Reads a whole ordinary file and lets events run meanwhile. Faults: `missing`, `notAFile`,
// `tooLong`, `notOpened`, `notRead`, `stopped`.
[[nodiscard]] Result<InputBytes> ReadInput(const std::string& path, Progress& progress);

}  // namespace quorvel
