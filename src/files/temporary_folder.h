// The folder into which the body of a word-processor document is unpacked.
#pragma once

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

// A temporary folder that lives as long as its scope: whether the document was
// read, refused, stopped or too large for the memory, it is removed at the end.
class TemporaryFolder {
 public:
  // Makes the folder in the system's place for such; it is to hold the file `entry`.
  TemporaryFolder(std::string_view tag, std::string entry);

  // Removes what Remove has not been called for.
  ~TemporaryFolder();

  TemporaryFolder(TemporaryFolder&& other) noexcept;
  TemporaryFolder& operator=(TemporaryFolder&&) = delete;
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  // Empty when no folder could be made.
  [[nodiscard]] const std::string& Path() const { return path_; }

  // The path of the file that it is to hold.
  [[nodiscard]] std::string EntryPath() const;

  // Removes it now, to be told what could not be removed.
  [[nodiscard]] std::optional<Fault> Remove();

 private:
  std::string entry_;
  std::string path_;
};

}  // namespace quorvel
