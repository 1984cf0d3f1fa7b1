#include "files/read_file.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <utility>

#include "files/system_calls.h"
#include "util/large_pages.h"

namespace quorvel {

namespace fs = std::filesystem;

namespace {

// Allocates uninitialized memory.
std::shared_ptr<char[]> RoomFor(std::size_t length) {
  std::shared_ptr<char[]> room(new char[length]);  // NOLINT(*-make-shared): that would clear it
  AdviseLargePages(room.get(), length);
  return room;
}

}  // namespace

// The status is checked before opening, because opening a pipe or a device may have side effects.
// It is checked again afterwards, because the file may have been replaced meanwhile.
FileToRead::FileToRead(const std::string& path) : path_(path) {
  const fs::path place = ToPath(path);
  std::error_code error;
  const fs::file_status found = StatusOf(place, error);
  const bool isOther = fs::exists(found) && !fs::is_regular_file(found);
  if (found.type() == fs::file_type::not_found) {
    fault_ = SystemFault(FaultKind::missing, path, ENOENT);
  } else if (fs::is_directory(found)) {
    fault_ = SystemFault(FaultKind::missing, path, EISDIR);
  } else if (isOther) {
    fault_ = NotAFile(FaultKind::notAFile, path);
  } else {
    Open(place);
  }
}

void FileToRead::Open(const fs::path& place) {
  handle_ = OpenToRead(place);
  if (handle_ < 0) {
    fault_ = SystemFault(errno == ENOENT ? FaultKind::missing : FaultKind::notOpened, path_, errno);
    return;
  }
  const std::optional<OpenStatus> status = StatusOf(handle_);
  if (!status) {
    fault_ = SystemFault(FaultKind::notRead, path_, errno);
  } else if (!status->isOrdinary) {
    fault_ = NotAFile(FaultKind::notAFile, path_);
  } else {
    length_ = static_cast<std::uint64_t>(status->length);
  }
}

FileToRead::~FileToRead() {
  if (handle_ >= 0) ::close(handle_);
}

std::size_t FileToRead::Read(char* into, std::size_t length) {
  if (fault_) return 0;
  const std::int64_t got = ReadBytes(handle_, into, length);
  if (got < 0) fault_ = SystemFault(FaultKind::notRead, path_, errno);
  return static_cast<std::size_t>(std::max<std::int64_t>(got, 0));
}

std::string_view FileToRead::Begin(std::size_t length) {
  begin_.resize(length);
  begin_.resize(Read(begin_.data(), length));
  return begin_;
}

// Reads only the length that the file had when it was opened. If the file grows meanwhile, its
// stamp shows that it has changed.
Result<InputBytes> FileToRead::ReadAll(const FileStamp& stamp,
                                       const std::function<bool()>& goesOn) {
  constexpr std::size_t STEP = std::size_t{4} << 20U;
  if (fault_) return *fault_;
  const auto length = std::max(static_cast<std::size_t>(length_), begin_.size());
  const std::shared_ptr<char[]> bytes = RoomFor(length);
  std::copy(begin_.begin(), begin_.end(), bytes.get());
  std::size_t done = begin_.size();
  while (done < length) {
    const std::size_t step = std::min(STEP, length - done);
    const std::size_t got = Read(bytes.get() + done, step);
    if (fault_) return *fault_;
    done += got;
    if (!goesOn()) return Fault{FaultKind::stopped, path_, {}};
    if (got < step) break;
  }
  return InputBytes(path_, stamp, bytes, done);
}

// Requests one byte more than the length of the file, which detects the end of the file without
// another call. Files of the system, such as those in /proc, may be longer than they report.
Result<std::string> ReadFileBytes(const std::string& path, std::uint64_t limit) {
  constexpr std::uint64_t STEP = 65536;
  FileToRead file(path);
  std::string bytes;
  std::uint64_t wanted = file.Length() + 1;
  for (std::size_t done = 0; !file.Error(); wanted = std::max(2 * wanted, STEP)) {
    const auto length = static_cast<std::size_t>(std::min(wanted, limit));
    bytes.resize(length);
    done += file.Read(bytes.data() + done, length - done);
    if (file.Error()) break;
    if (done < length || length == limit) {
      bytes.resize(done);
      return bytes;
    }
  }
  return *file.Error();
}

InputBytes::InputBytes(std::string path, const FileStamp& stamp,
                       std::shared_ptr<const char[]> bytes, std::size_t length)
    : path_(std::move(path)), stamp_(stamp), bytes_(std::move(bytes)), length_(length) {}

InputBytes::InputBytes(std::string path, std::string_view bytes)
    : path_(std::move(path)), length_(bytes.size()) {
  const std::shared_ptr<char[]> copy = RoomFor(bytes.size());
  std::copy(bytes.begin(), bytes.end(), copy.get());
  bytes_ = copy;
}

Result<InputBytes> ReadInput(const std::string& path, Progress& progress) {
  const FileStamp stamp = StampOf(path);
  FileToRead file(path);
  if (!file.Error() && file.Length() > LONGEST_INPUT) return Fault{FaultKind::tooLong, path, {}};
  return file.ReadAll(stamp, [&progress] {
    progress.YieldNow();
    return !progress.StopRequested();
  });
}

}  // namespace quorvel
