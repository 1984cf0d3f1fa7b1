// Reading files: each is opened once and read into memory.
//
// Paths are the file system's own bytes, UTF-8 on Windows. A failed read is a fault, never an empty
// text. Nothing here throws, but for want of memory.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "files/file_system.h"
#include "util/fault.h"
#include "util/progress.h"

namespace quorvel {

// Reads the first `limit` bytes of a file. `missing` where there is none, `notOpened`, `notRead`.
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

// Reads an ordinary file whole and lets events run meanwhile. `missing`, `notAFile`, `tooLong`
// where not every byte would have a place that a 32-bit number can hold, `notOpened`, `notRead`,
// `stopped`.
[[nodiscard]] Result<InputBytes> ReadInput(const std::string& path, Progress& progress);

}  // namespace quorvel
