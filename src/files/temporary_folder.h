// The folder into which the body of a word-processor document is unpacked.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "util/fault.h"

namespace quorvel {

// Makes a new folder below `base`, its name `tag` and the first free number from
// 001 to 999. Gives its path, or an empty string when none could be made.
[[nodiscard]] std::string CreateTemporaryFolder(const std::string& base, std::string_view tag);

// Deletes the file `entry` below the folder, the folders that lead to it, and the folder itself.
// What is not there needs no deletion. The first thing that cannot be deleted is the fault,
// `fileNotRemoved` or `folderNotRemoved`, and the rest stays in place.
[[nodiscard]] std::optional<Fault> RemoveTemporaryFolder(const std::string& folder,
                                                         const std::string& entry);

// A file in a temporary folder of its own, for bytes that are written and then read back. Where the
// system lets go of the name of an open file, file and folder are gone from there before the first
// byte is written, so that no end of the program, whatever it is, leaves the bytes behind.
// Elsewhere both are removed at the end of the scope.
class TemporaryFile {
 public:
  // Makes the folder in the system's place for such, and in it the file `entry`.
  TemporaryFile(std::string_view tag, const std::string& entry);

  // Removes what Remove has not been called for.
  ~TemporaryFile();

  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;

  // False when no folder could be made.
  [[nodiscard]] bool HasFolder() const { return hasFolder_; }

  // Appends bytes. False when that fails, also for a file that could not be made.
  [[nodiscard]] bool Write(std::string_view bytes) const;

  // The first `limit` bytes of what was written. `notRead`.
  [[nodiscard]] Result<std::string> ReadBack(std::uint64_t limit) const;

  // Removes now what is left of it, to be told what could not be removed.
  [[nodiscard]] std::optional<Fault> Remove();

 private:
  explicit TemporaryFile(std::string folder);

  std::string folder_;  // empty once there is none
  std::string path_;    // of the file in it
  bool hasFolder_ = false;
  int handle_ = -1;
};

}  // namespace quorvel
