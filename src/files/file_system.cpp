#include "files/file_system.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <system_error>

#include "util/large_pages.h"

#ifdef _WIN32
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
#endif

namespace quorvel {
namespace {

namespace fs = std::filesystem;

// One read or write call moves at most this many bytes: a size every platform takes.
constexpr std::size_t LARGEST_TRANSFER = std::size_t{1} << 30U;

// The number that `errno` would have, whatever the system's own is.
int NumberOf(const std::error_code& error) { return error.default_error_condition().value(); }

#ifdef _WIN32
fs::path ToPath(const std::string& path) {
  return fs::path(std::u8string(path.begin(), path.end()));
}

std::string FromPath(const fs::path& path) {
  const std::u8string text = path.u8string();
  return {text.begin(), text.end()};
}

// The root of the first fixed drive from "C:" on; empty when there is none.
std::string FindFixedDrive() {
  std::wstring root = L"C:\\";
  for (; root[0] <= L'Z'; ++root[0]) {
    if (::GetDriveTypeW(root.c_str()) == DRIVE_FIXED) return FromPath(root);
  }
  return {};
}

fs::path ProgramPath() {
  constexpr std::size_t LONGEST_PATH = 32768;
  std::wstring path(LONGEST_PATH, L'\0');
  path.resize(::GetModuleFileNameW(nullptr, path.data(), LONGEST_PATH));
  return path;
}

FolderMaking MakeFolderOfOwner(const fs::path& path) {
  if (::CreateDirectoryW(path.c_str(), nullptr) != 0) return FolderMaking::made;
  return ::GetLastError() == ERROR_ALREADY_EXISTS ? FolderMaking::exists : FolderMaking::failed;
}

// A file that another program keeps to itself is no matter of rights: EBUSY stands for it here.
bool IsSharingFault(unsigned long systemError) {
  return systemError == ERROR_SHARING_VIOLATION || systemError == ERROR_LOCK_VIOLATION;
}

int OpenFile(const fs::path& path, int flags, bool /*private*/ = false) {
  const int handle = _wopen(path.c_str(), flags | O_BINARY | O_NOINHERIT, 0666);
  if (handle < 0 && errno == EACCES) {
    std::error_code error;
    const int number = IsSharingFault(_doserrno) ? EBUSY : EACCES;
    errno = fs::is_directory(path, error) ? EISDIR : number;
  }
  return handle;
}

int SyncFile(int handle) { return ::_commit(handle); }

// Whether the file can be written and, while others may have it open, replaced.
bool IsWritable(const fs::path& path) {
  constexpr unsigned long SHARED = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
  const HANDLE handle = ::CreateFileW(path.c_str(), GENERIC_WRITE | DELETE, SHARED, nullptr,
                                      OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (handle == INVALID_HANDLE_VALUE) {
    errno = IsSharingFault(::GetLastError()) ? EBUSY : EACCES;
    return false;
  }
  ::CloseHandle(handle);
  return true;
}

// Why a file could not take the place of `target`: of one that is open elsewhere, which may have
// been opened since, the system only says that it denies it.
int RenamingFault(const std::error_code& error, const fs::path& target) {
  std::error_code ignored;
  return fs::exists(target, ignored) && !IsWritable(target) ? errno : NumberOf(error);
}

void TakeAttributesOf(int /*handle*/, const fs::path& /*target*/) {}

// "NUL" and the like are devices in every folder, of which the standard library knows nothing.
fs::file_status StatusOf(const fs::path& path, std::error_code& error) {
  constexpr std::size_t LONGEST_NAME = 32;
  std::wstring device(LONGEST_NAME, L'\0');
  const unsigned long length =
      ::GetFullPathNameW(path.c_str(), LONGEST_NAME, device.data(), nullptr);
  device.resize(std::min<std::size_t>(length, LONGEST_NAME));
  if (device.starts_with(L"\\\\.\\")) return fs::file_status(fs::file_type::character);
  return fs::status(path, error);
}
#else
fs::path ToPath(const std::string& path) { return {path}; }

std::string FromPath(const fs::path& path) { return path.string(); }

fs::file_status StatusOf(const fs::path& path, std::error_code& error) {
  return fs::status(path, error);
}

fs::path ProgramPath() {
  std::error_code error;
  return fs::read_symlink("/proc/self/exe", error);
}

FolderMaking MakeFolderOfOwner(const fs::path& path) {
  constexpr ::mode_t OWNER_ONLY = 0700;
  if (::mkdir(path.c_str(), OWNER_ONLY) == 0) return FolderMaking::made;
  return errno == EEXIST ? FolderMaking::exists : FolderMaking::failed;
}

// A new file that is `isPrivate` can be read by its owner alone.
int OpenFile(const fs::path& path, int flags, bool isPrivate = false) {
  return ::open(path.c_str(), flags | O_CLOEXEC, isPrivate ? 0600 : 0666);  // NOLINT(*-vararg)
}

int SyncFile(int handle) { return ::fsync(handle); }

bool IsWritable(const fs::path& path) { return ::access(path.c_str(), W_OK) == 0; }

int RenamingFault(const std::error_code& error, const fs::path& /*target*/) {
  return NumberOf(error);
}

// A file that takes another's place keeps its owner, as far as that is allowed, and its mode.
void TakeAttributesOf(int handle, const fs::path& target) {
  struct stat status = {};
  // What it holds is for those who may read the old one: for the owner, if in doubt.
  if (::stat(target.c_str(), &status) != 0) return;
  [[maybe_unused]] const int ownerKept = ::fchown(handle, status.st_uid, status.st_gid);
  ::fchmod(handle, status.st_mode & 07777U);
}
#endif

// Whether something may be there of which the system will say nothing.
bool IsWithheld(const std::error_code& error) {
  return error == std::errc::permission_denied || error == std::errc::io_error;
}

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

}  // namespace

bool FileExists(const std::string& path) {
  std::error_code error;
  const fs::file_status status = StatusOf(ToPath(path), error);
  return (fs::exists(status) && !fs::is_directory(status)) || IsWithheld(error);
}

bool FolderExists(const std::string& path) {
  std::error_code error;
  return fs::is_directory(ToPath(path), error);
}

bool IsRegularFile(const std::string& path) {
  std::error_code error;
  return fs::is_regular_file(StatusOf(ToPath(path), error)) || IsWithheld(error);
}

std::optional<std::int64_t> FileLength(const std::string& path) {
  std::error_code error;
  const std::uintmax_t length = fs::file_size(ToPath(path), error);
  if (error) return std::nullopt;
  return static_cast<std::int64_t>(length);
}

FileStamp StampOf(const std::string& path) {
  std::error_code error;
  const auto time = fs::last_write_time(ToPath(path), error);
  if (error) return {};
  return {FileLength(path).value_or(-1), time.time_since_epoch().count()};
}

bool IsSameFile(const std::string& path, const std::string& other) {
  std::error_code error;
  if (path == other || fs::equivalent(ToPath(path), ToPath(other), error)) return true;
  return error && FileExists(path) && FileExists(other);
}

std::string JoinPath(const std::string& folder, const std::string& name) {
  return FromPath((ToPath(folder) / ToPath(name)).make_preferred());
}

#ifdef _WIN32
std::string TemporaryBase() {
  std::string drive = FindFixedDrive();
  if (drive.empty() && FolderExists("C:\\")) drive = "C:\\";
  return drive;
}

std::string UserConfigurationFolder() {
  for (const wchar_t* variable : {L"APPDATA", L"USERPROFILE"}) {
    const wchar_t* folder = ::_wgetenv(variable);
    if (folder != nullptr && *folder != L'\0') return FromPath(folder);
  }
  return FromPath(ProgramPath().parent_path());
}
#else
std::string TemporaryBase() {
  std::error_code error;
  return FromPath(fs::temp_directory_path(error));
}

std::string UserConfigurationFolder() {
  // Read before any thread is started.
  const char* configured = std::getenv("XDG_CONFIG_HOME");  // NOLINT(concurrency-mt-unsafe)
  if (configured != nullptr && *configured == '/') return configured;
  const char* home = std::getenv("HOME");  // NOLINT(concurrency-mt-unsafe)
  if (home != nullptr && *home == '/') return JoinPath(home, ".config");
  return FromPath(ProgramPath().parent_path());
}
#endif

void MakeFoldersFor(const std::string& path) {
  std::error_code error;
  fs::create_directories(ToPath(path).parent_path(), error);
}

std::string DataFilePath(const std::string& name) {
  const fs::path programFolder = ProgramPath().parent_path();
  const fs::path folders[] = {programFolder, programFolder.parent_path() / "share" / "quorvel",
#ifdef QUORVEL_SOURCE_DATA
                              ToPath(QUORVEL_SOURCE_DATA)
#endif
  };
  for (const fs::path& folder : folders) {
    std::string path = FromPath(folder / ToPath(name));
    if (FileExists(path)) return path;
  }
  return FromPath(programFolder / ToPath(name));
}

FolderMaking MakeFolder(const std::string& path) { return MakeFolderOfOwner(ToPath(path)); }

bool RemoveFileOrFolder(const std::string& path) {
  std::error_code error;
  fs::remove(ToPath(path), error);
  return !error;
}

std::string SystemMessage(int errorNumber) {
#ifdef _WIN32
  if (errorNumber == EBUSY) return "The file is open in another program";
#endif
  return std::error_code(errorNumber, std::generic_category()).message();
}

FileRead ReadFileBytes(const std::string& path, std::uint64_t limit) {
  constexpr std::uint64_t STEP = 65536;
  FileRead result;
  const auto failed = [&result] {
    result.errorNumber = errno;
    result.error = SystemMessage(result.errorNumber);
    result.bytes.clear();
    return result;
  };
  const ReadHandle file(path);
  if (!file.IsOpen()) return failed();
  // One byte more than the file has shows its end without another round.
  std::uint64_t wanted = static_cast<std::uint64_t>(FileLength(path).value_or(0)) + 1;
  ReserveLarge(result.bytes, static_cast<std::size_t>(std::min(wanted, limit)));
  for (std::size_t done = 0;; wanted = std::max(2 * wanted, STEP)) {
    const auto length = static_cast<std::size_t>(std::min(wanted, limit));
    result.bytes.resize(length);
    const std::int64_t got = file.Read(result.bytes.data() + done, length - done);
    if (got < 0) return failed();
    done += static_cast<std::size_t>(got);
    if (done < length || length == limit) {
      result.bytes.resize(done);
      return result;
    }
  }
}

int ReadFileInChunks(const std::string& path, std::size_t chunkLength,
                     const std::function<bool(std::string_view)>& take) {
  const ReadHandle file(path);
  if (!file.IsOpen()) return errno;
  std::string chunk(chunkLength, '\0');
  std::uint64_t done = 0;
  std::int64_t got = 0;
  while ((got = file.Read(chunk.data(), chunkLength)) > 0) {
    done += static_cast<std::uint64_t>(got);
    if (done > MOST_BYTES_READ) return EFBIG;
    if (!take(std::string_view(chunk).substr(0, static_cast<std::size_t>(got)))) return 0;
  }
  return got == 0 ? 0 : errno;
}

#ifdef _WIN32
void LetOversizedWritesFail() {}
#else
void LetOversizedWritesFail() { std::signal(SIGXFSZ, SIG_IGN); }
#endif

OutputFile::OutputFile(const std::string& path) : target_(ToPath(path)) { Open(); }

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
  while (!bytes.empty() && error_.empty()) {
    const auto part = static_cast<unsigned>(std::min(bytes.size(), LARGEST_TRANSFER));
    const auto written = ::write(handle_, bytes.data(), part);
    if (written >= 0) {
      bytes.remove_prefix(static_cast<std::size_t>(written));
    } else if (errno != EINTR) {
      Fail(errno);
    }
  }
  return error_.empty();
}

bool OutputFile::Commit() {
  if (error_.empty() && !temporary_.empty()) Sync();
  return CommitPassing();
}

bool OutputFile::CommitPassing() {
  CloseHandle();
  if (error_.empty() && !temporary_.empty()) {
    std::error_code error;
    fs::rename(temporary_, target_, error);
    if (error) {
      Fail(RenamingFault(error, target_));
    } else {
      temporary_.clear();
    }
  }
  return error_.empty();
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
  if (error_.empty()) error_ = SystemMessage(errorNumber);
}

}  // namespace quorvel
