// Reading files: each is opened once and read into memory.
//
// Only ordinary files are read: a device, a pipe or a socket may have no end, or keep its reader
// waiting, and is not even opened. Paths are the file system's own bytes, UTF-8 on Windows. A
// failed read is a fault, never an empty text. Nothing here throws, but for want of memory.
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

// Reads the first `limit` bytes of an ordinary file, of one of the system's own too, which has more
// than it says. `missing` where there is none, `notAFile`, `notOpened`, `notRead`.
[[nodiscard]] Result<std::string> ReadFileBytes(const std::string& path, std::uint64_t limit);

// The bytes of an input as they were read: text, digest and all else are made of these. Copies
// share them.
class InputBytes {
 public:
  InputBytes() = default;
  InputBytes(std::string path, const FileStamp& stamp, std::shared_ptr<const char[]> bytes,
             std::size_t length);

  // Bytes that are in memory already.
  InputBytes(std::string path, std::string_view bytes);

  [[nodiscard]] const std::string& Path() const { return path_; }

  // What the file was like just before it was read.
  [[nodiscard]] const FileStamp& Stamp() const { return stamp_; }

  [[nodiscard]] std::string_view View() const { return {bytes_.get(), length_}; }

 private:
  std::string path_;
  FileStamp stamp_;
  std::shared_ptr<const char[]> bytes_;
  std::size_t length_ = 0;
};

// An ordinary file, open to be read. After a fault nothing more is.
class FileToRead {
 public:
  explicit FileToRead(const std::string& path);
  ~FileToRead();
  FileToRead(const FileToRead&) = delete;
  FileToRead& operator=(const FileToRead&) = delete;

  // `missing` where there is none or a folder, `notAFile`, `notOpened`, `notRead`.
  [[nodiscard]] const std::optional<Fault>& Why() const { return fault_; }

  // In bytes, when it was opened.
  [[nodiscard]] std::uint64_t Length() const { return length_; }

  // Reads the next bytes, fewer only at the end of the file or on a fault; gives how many.
  [[nodiscard]] std::size_t Read(char* into, std::size_t length);

  // The first bytes, up to so many, before any others are read; they stay until the object goes.
  [[nodiscard]] std::string_view Begin(std::size_t length);

  // Reads the file to its end, once; the bytes of Begin are not read again. `stopped` as soon as
  // `goesOn`, which is asked now and then, says no.
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

// In bytes: each has a place that a 32-bit number can hold.
inline constexpr std::uint64_t LONGEST_INPUT = std::numeric_limits<std::int32_t>::max() - 1;

// Reads an ordinary file whole and lets events run meanwhile. `missing`, `notAFile`, `tooLong`,
// `notOpened`, `notRead`, `stopped`.
[[nodiscard]] Result<InputBytes> ReadInput(const std::string& path, Progress& progress);

}  // namespace quorvel
