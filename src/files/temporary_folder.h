// Temporary folders, and a temporary file for the unpacked body of a word-processor document.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "util/fault.h"

namespace quorvel {

// Creates a new folder in `base`. Its name is `tag` followed by the first free number from 001 to
// 999. Returns its path, or an empty string on failure.
[[nodiscard]] std::string CreateTemporaryFolder(const std::string& base, std::string_view tag);

// Deletes the file `entry` in `folder`, the folders between them, and `folder` itself. Missing
// files and folders are skipped. Stops at the first failure and returns it: `fileNotRemoved` or
// `folderNotRemoved`.
[[nodiscard]] std::optional<Fault> RemoveTemporaryFolder(const std::string& folder,
                                                         const std::string& entry);

// A file in its own temporary folder, for bytes that are written and then read back.
//
// Where the system can remove the name of an open file, the file and the folder are removed before
// the first byte is written. Then the bytes never outlive the program, however it ends. On other
// systems both are removed by the destructor.
class TemporaryFile {
 public:
  // Creates the folder in TemporaryBase(), and the file `entry` in it.
  TemporaryFile(std::string_view tag, const std::string& entry);

  // Removes the file and the folder, unless Remove was called.
  ~TemporaryFile();

  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;

  // False when the folder could not be created.
  [[nodiscard]] bool HasFolder() const { return hasFolder_; }

  // Appends bytes. Returns false on failure, also when the file could not be created.
  [[nodiscard]] bool Write(std::string_view bytes) const;

  // Returns the first `limit` written bytes. Fault: `notRead`.
  [[nodiscard]] Result<std::string> ReadBack(std::uint64_t limit) const;

  // Removes the file and the folder now, and returns what could not be removed.
  [[nodiscard]] std::optional<Fault> Remove();

 private:
  explicit TemporaryFile(std::string folder);

  std::string folder_;  // empty when already removed
  std::string path_;    // of the file
  bool hasFolder_ = false;
  int handle_ = -1;
};

}  // namespace quorvel
