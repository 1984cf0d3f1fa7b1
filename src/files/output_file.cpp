#include "files/output_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>

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
void LetOversizedWritesFail() {}
#else
void LetOversizedWritesFail() { std::signal(SIGXFSZ, SIG_IGN); }
#endif

OutputFile::OutputFile(const std::string& path, const FilesToKeep& kept)
    : path_(path), target_(ToPath(path)), fault_(WouldReplace(path, kept)) {
  if (!fault_) Open();
}

OutputFile::~OutputFile() {
  CloseHandle();
  std::error_code error;
  if (!temporary_.empty()) fs::remove(temporary_, error);
}

void OutputFile::Open() {
  std::error_code error;
  const fs::file_status status = StatusOf(target_, error);
  if (status.type() == fs::file_type::not_found) return OpenBeside(false);
  if (error) return Fail(NumberOf(error));
  if (fs::is_directory(status)) return Fail(EISDIR);
  if (!fs::is_regular_file(status)) {
    handle_ = OpenFile(target_, O_WRONLY);
    if (handle_ < 0) Fail(errno);
    return;
  }
  if (!IsWritable(target_)) return Fail(errno);
  target_ = fs::canonical(target_, error);
  if (error) return Fail(NumberOf(error));
  OpenBeside(true);
}

// The name of the new file is short, so that it fits wherever the target's does.
void OutputFile::OpenBeside(bool replaces) {
  constexpr int NAMES_TO_TRY = 1000;
  const std::string stem = ".qvl" + std::to_string(::getpid()) + "-";
  for (int n = 0; n < NAMES_TO_TRY; ++n) {
    const fs::path temporary = target_.parent_path() / (stem + std::to_string(n) + ".tmp");
    handle_ = OpenFile(temporary, O_WRONLY | O_CREAT | O_EXCL, replaces);
    if (handle_ >= 0) {
      temporary_ = temporary;
      if (replaces) TakeAttributesOf(handle_, target_);
      return;
    }
    if (errno != EEXIST) break;
  }
  Fail(errno);
}

bool OutputFile::Write(std::string_view bytes) {
  while (!bytes.empty() && !fault_) {
    const auto part = static_cast<unsigned>(std::min(bytes.size(), LARGEST_TRANSFER));
    const auto written = ::write(handle_, bytes.data(), part);
    if (written >= 0) {
      bytes.remove_prefix(static_cast<std::size_t>(written));
    } else if (errno != EINTR) {
      Fail(errno);
    }
  }
  return !fault_;
}

bool OutputFile::Commit() {
  if (!fault_ && !temporary_.empty()) Sync();
  return CommitPassing();
}

bool OutputFile::CommitPassing() {
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

// A file system that knows no such wait says that the handle is not one for it.
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
