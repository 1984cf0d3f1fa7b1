#include "files/output_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <utility>

#include "files/file_attributes.h"
#include "files/file_system.h"
#include "files/system_calls.h"

namespace quorvel {

namespace fs = std::filesystem;

std::optional<Fault> WouldReplace(const std::string& path, const FilesToKeep& kept) {
  if (path.empty()) return std::nullopt;
  for (const KeptFile& file : kept) {
    if (!file.path.empty() && IsSameFile(file.path, path)) {
      return Fault{FaultKind::wouldReplace, path, file.what};
    }
  }
  return std::nullopt;
}

#ifdef _WIN32
void OpenMissingStandardStreams() {}

void LetOversizedWritesFail() {}
#else
// Each missing stream is opened so that using it fails. Output must not seem to succeed when nobody
// receives it.
void OpenMissingStandardStreams() {
  for (const int handle : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    if (::fcntl(handle, F_GETFD) >= 0) continue;  // NOLINT(*-vararg)
    const int flags = handle == STDIN_FILENO ? O_WRONLY : O_RDONLY;
    [[maybe_unused]] const int held = ::open("/dev/null", flags);  // NOLINT(*-vararg)
  }
}

void LetOversizedWritesFail() { std::signal(SIGXFSZ, SIG_IGN); }
#endif

// This delegated constructor completes the object. If memory runs out while the file is being
// opened, the destructor then removes the new file.
OutputFile::OutputFile(const std::string& path) : path_(path), target_(ToPath(path)) {}

OutputFile::OutputFile(const std::string& path, const FilesToKeep& kept, Targets targets)
    : OutputFile(path) {
  fault_ = WouldReplace(path, kept);
  if (!fault_) Open(targets);
}

OutputFile::~OutputFile() {
  if (handle_ >= 0) ::close(handle_);
  std::error_code error;
  fs::remove(temporary_, error);
}

void OutputFile::Open(Targets targets) {
  std::error_code error;
  const fs::file_status status = StatusOf(target_, error);
  if (status.type() == fs::file_type::not_found) {
    target_ = ResolveLinks(target_, error);
    return error ? Fail(NumberOf(error)) : OpenBeside();
  }
  if (error) return Fail(NumberOf(error));
  if (fs::is_directory(status)) return Fail(EISDIR);
  if (!fs::is_regular_file(status)) {
    if (targets == Targets::ordinaryFiles) {
      fault_ = NotAFile(FaultKind::notWritten, path_);
      return;
    }
    handle_ = OpenFile(target_, O_WRONLY);
    if (handle_ < 0) Fail(errno);
    return;
  }
  if (!IsWritable(target_)) return Fail(errno);
  target_ = fs::canonical(target_, error);
  if (error) return Fail(NumberOf(error));
  replaces_ = true;
  OpenBeside();
}

// The name of the new file is short, so that it is valid wherever the target's name is. A file that
// will replace another one is accessible only to its owner until it is committed.
void OutputFile::OpenBeside() {
  constexpr int NAMES_TO_TRY = 1000;
  const std::string stem = ".qvl" + std::to_string(::getpid()) + "-";
  for (int n = 0; n < NAMES_TO_TRY; ++n) {
    fs::path temporary = target_.parent_path() / (stem + std::to_string(n) + ".tmp");
    handle_ = OpenFile(temporary, O_WRONLY | O_CREAT | O_EXCL, replaces_);
    if (handle_ >= 0) {
      temporary_ = std::move(temporary);
      return;
    }
    if (errno != EEXIST) break;
  }
  Fail(errno);
}

bool OutputFile::Write(std::string_view bytes) {
  if (!fault_ && !WriteBytes(handle_, bytes)) Fail(errno);
  return !fault_;
}

bool OutputFile::Commit() {
  if (!fault_ && !temporary_.empty()) Sync();
  if (!fault_ && replaces_) CopyAttributesFrom(handle_, target_);
  CloseHandle();
  if (!fault_ && !temporary_.empty()) {
    std::error_code error;
    fs::rename(temporary_, target_, error);
    if (error) {
      Fail(RenamingFault(error, target_));
    } else {
      temporary_.clear();
    }
  }
  return !fault_;
}

// EINVAL means that the file system does not support synchronization.
void OutputFile::Sync() {
  int result = 0;
  do {
    result = SyncFile(handle_);
  } while (result != 0 && errno == EINTR);
  if (result != 0 && errno != EINVAL) Fail(errno);
}

void OutputFile::CloseHandle() {
  if (handle_ >= 0 && ::close(handle_) != 0) Fail(errno);
  handle_ = -1;
}

void OutputFile::Fail(int errorNumber) {
  if (!fault_) fault_ = SystemFault(FaultKind::notWritten, path_, errorNumber);
}

}  // namespace quorvel
