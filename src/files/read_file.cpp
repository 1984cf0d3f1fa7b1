#include "files/read_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <limits>
#include <optional>
#include <utility>

#ifdef _WIN32
#include <io.h>
#endif

#include "files/system_calls.h"
#include "util/large_pages.h"

namespace quorvel {
namespace {

// Closes its file when it goes out of scope.
class ReadHandle {
 public:
  explicit ReadHandle(const std::string& path) : handle_(OpenFile(ToPath(path), O_RDONLY)) {}
  ~ReadHandle() {
    if (handle_ >= 0) ::close(handle_);
  }
  ReadHandle(const ReadHandle&) = delete;
  ReadHandle& operator=(const ReadHandle&) = delete;

  [[nodiscard]] bool IsOpen() const { return handle_ >= 0; }

  // The length of the very file that was opened, in bytes; -1 on failure.
  [[nodiscard]] std::int64_t Length() const {
#ifdef _WIN32
    return ::_filelengthi64(handle_);
#else
    struct stat status = {};
    return ::fstat(handle_, &status) == 0 ? std::int64_t{status.st_size} : -1;
#endif
  }

  // Reads up to `length` bytes, fewer only at the end of the file; -1 on failure.
  [[nodiscard]] std::int64_t Read(char* into, std::size_t length) const {
    std::size_t done = 0;
    while (done < length) {
      const auto part = static_cast<unsigned>(std::min(length - done, LARGEST_TRANSFER));
      const auto got = ::read(handle_, into + done, part);
      if (got == 0) break;
      if (got > 0) {
        done += static_cast<std::size_t>(got);
      } else if (errno != EINTR) {
        return -1;
      }
    }
    return static_cast<std::int64_t>(done);
  }

 private:
  int handle_;
};

Fault OpeningFault(const std::string& path) {
  return SystemFault(errno == ENOENT ? FaultKind::missing : FaultKind::notOpened, path, errno);
}

// Room for bytes that will all be written before they are read.
std::shared_ptr<char[]> RoomFor(std::size_t length) {
  std::shared_ptr<char[]> room(new char[length]);  // NOLINT(*-make-shared): that would clear it
  AdviseLargePages(room.get(), length);
  return room;
}

constexpr std::int64_t LONGEST_INPUT = std::numeric_limits<std::int32_t>::max() - 1;

// Why a file that is there is no input.
std::optional<Fault> FaultOfInput(const std::string& path) {
  if (!FileExists(path)) return SystemFault(FaultKind::missing, path, ENOENT);
  if (!IsRegularFile(path)) return Fault{FaultKind::notAFile, path, {}};
  if (FileLength(path).value_or(0) > LONGEST_INPUT) return Fault{FaultKind::tooLong, path, {}};
  return std::nullopt;
}

}  // namespace

Result<std::string> ReadFileBytes(const std::string& path, std::uint64_t limit) {
  constexpr std::uint64_t STEP = 65536;
  const ReadHandle file(path);
  if (!file.IsOpen()) return OpeningFault(path);
  std::string bytes;
  // One byte more than the file has shows its end without another round.
  std::uint64_t wanted = static_cast<std::uint64_t>(std::max<std::int64_t>(file.Length(), 0)) + 1;
  for (std::size_t done = 0;; wanted = std::max(2 * wanted, STEP)) {
    const auto length = static_cast<std::size_t>(std::min(wanted, limit));
    bytes.resize(length);
    const std::int64_t got = file.Read(bytes.data() + done, length - done);
    if (got < 0) return SystemFault(FaultKind::notRead, path, errno);
    done += static_cast<std::size_t>(got);
    if (done < length || length == limit) {
      bytes.resize(done);
      return bytes;
    }
  }
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

// A file that grows meanwhile is taken as long as it was at first: what comes after is another
// version of it, which its stamp will tell.
Result<InputBytes> ReadInput(const std::string& path, Progress& progress) {
  constexpr std::size_t STEP = std::size_t{4} << 20U;
  if (std::optional<Fault> fault = FaultOfInput(path)) return *std::move(fault);
  const FileStamp stamp = StampOf(path);
  const ReadHandle file(path);
  if (!file.IsOpen()) return OpeningFault(path);
  const std::int64_t said = file.Length();
  if (said < 0) return SystemFault(FaultKind::notRead, path, errno);
  const auto length = static_cast<std::size_t>(said);
  const std::shared_ptr<char[]> bytes = RoomFor(length);
  std::size_t done = 0;
  while (done < length) {
    const std::size_t step = std::min(STEP, length - done);
    const std::int64_t got = file.Read(bytes.get() + done, step);
    if (got < 0) return SystemFault(FaultKind::notRead, path, errno);
    done += static_cast<std::size_t>(got);
    progress.YieldNow();
    if (progress.StopRequested()) return Fault{FaultKind::stopped, path, {}};
    if (static_cast<std::size_t>(got) < step) break;
  }
  return InputBytes(path, stamp, bytes, done);
}

}  // namespace quorvel
