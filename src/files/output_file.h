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

// Fills the places of standard input, output and error where the program was started without them:
// a file that is opened later would get such a place, and what is said would be written into it.
// For the start of a program.
void HoldStandardStreams();

// What may be written to. A device or pipe has no content to lose, but may keep its writer waiting
// for ever, and the program reads none of its own files from one.
enum class Targets { ordinaryFiles, all };

// A file being written. The bytes go to a new file in the target's folder, which
// takes the target's place only in Commit: until then, and after any failure, an
// existing target is as it was. A link is followed, also to where no file is yet; a device or pipe
// is written directly, where that is allowed. A target that would replace one of the files
// to keep is never opened. The new file of an existing target is its writer's alone until Commit
// gives it the rights of the old one.
class OutputFile {
 public:
  OutputFile(const std::string& path, const FilesToKeep& kept, Targets targets = Targets::all);

  // Removes the new file, unless it was committed.
  ~OutputFile();

  OutputFile(const OutputFile&) = delete;
  OutputFile& operator=(const OutputFile&) = delete;

  // Appends bytes. False once anything has failed since the file was opened.
  bool Write(std::string_view bytes);

  // Puts the written file in the target's place; it is on the disk by then, so that a
  // power cut leaves the old or the new file. False when anything failed.
  [[nodiscard]] bool Commit();

  // The first failure, if any.
  [[nodiscard]] const std::optional<Fault>& Why() const { return fault_; }

 private:
  explicit OutputFile(const std::string& path);

  void Open(Targets targets);
  void OpenBeside();
  void Sync();
  void CloseHandle();
  void Fail(int errorNumber);

  std::string path_;
  std::filesystem::path target_;
  std::filesystem::path temporary_;  // empty when the target is written directly
  bool replaces_ = false;            // a file that is there already
  std::optional<Fault> fault_;
  int handle_ = -1;
};

}  // namespace quorvel
