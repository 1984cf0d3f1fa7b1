// Safe output files. All results reach the disk through this class, so that a failure never
// destroys an existing file.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "util/fault.h"

namespace quorvel {

// A file that an output must not replace, and its name for messages: "input file".
struct KeptFile {
  std::string what;
  std::string path;
};
using FilesToKeep = std::vector<KeptFile>;

// Returns a fault of kind `wouldReplace` for the first file in `kept` that an output at `path`
// would replace under any name (link, hard link, other spelling). An empty path is not a file.
[[nodiscard]] std::optional<Fault> WouldReplace(const std::string& path, const FilesToKeep& kept);

// Makes a write beyond the user's file size limit fail like a write to a full disk. By default such
// a write kills the program. Call it at program start.
void LetOversizedWritesFail();

// Opens standard input, output and error if the program was started without them. Otherwise a file
// that is opened later would get the number of a standard stream, and messages would be written
// into it. Call it at program start.
void OpenMissingStandardStreams();

// The kinds of files that may be written. A device or a pipe has no content to lose, but it can
// block its writer forever, and the program's own files are never read from one.
enum class Targets { ordinaryFiles, all };

// A file being written.
//
// The bytes go to a new file in the folder of the target, which replaces the target only in Commit.
// Until then, and after any failure, an existing target is unchanged. Links are followed, even to a
// file that does not exist yet. Devices and pipes are written directly, if `targets` allows them. A
// target that would replace one of the `kept` files is never opened. The new file of an existing
// target is accessible only to the writer until Commit gives it the target's permissions.
class OutputFile {
 public:
  OutputFile(const std::string& path, const FilesToKeep& kept, Targets targets = Targets::all);

  // Removes the new file unless it was committed.
  ~OutputFile();

  OutputFile(const OutputFile&) = delete;
  OutputFile& operator=(const OutputFile&) = delete;

  // Appends `bytes`. Returns false after any failure since the file was opened.
  bool Write(std::string_view bytes);

  // Replaces the target by the written file. The bytes are synchronized to the disk first, so that
  // a power failure leaves either the old or the new file. Returns false after any failure.
  [[nodiscard]] bool Commit();

  // The first failure, if any.
  [[nodiscard]] const std::optional<Fault>& Error() const { return fault_; }

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
  bool replaces_ = false;            // a target that exists already
  std::optional<Fault> fault_;
  int handle_ = -1;
};

}  // namespace quorvel
