// Writing files without ever losing one: the one door through which a result reaches the disk.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "util/fault.h"

namespace quorvel {

// A file that an output must not replace, and what it is: "input file".
struct KeptFile {
  std::string what;
  std::string path;
};
using FilesToKeep = std::vector<KeptFile>;

// The first of the files that an output at `path` would replace, under whatever name (link, hard
// link, other spelling), as a fault of the kind `wouldReplace`. An empty path is no file.
[[nodiscard]] std::optional<Fault> WouldReplace(const std::string& path, const FilesToKeep& kept);

// Lets a write beyond the file size that the user may have set fail like one on a full
// disk; otherwise it ends the program. For the start of a program.
void LetOversizedWritesFail();

// A file being written. The bytes go to a new file in the target's folder, which
// takes the target's place only in Commit: until then, and after any failure, an
// existing target is as it was. A link is followed; a device or pipe is written
// directly, for it has no content to lose. A target that would replace one of the files to keep is
// never opened.
class OutputFile {
 public:
  OutputFile(const std::string& path, const FilesToKeep& kept);

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

  // The first failure, if any.
  [[nodiscard]] const std::optional<Fault>& Why() const { return fault_; }

 private:
  void Open();
  void OpenBeside(bool replaces);
  void Sync();
  void CloseHandle();
  void Fail(int errorNumber);

  std::string path_;
  std::filesystem::path target_;
  std::filesystem::path temporary_;  // empty when the target is written directly
  std::optional<Fault> fault_;
  int handle_ = -1;
};

}  // namespace quorvel
