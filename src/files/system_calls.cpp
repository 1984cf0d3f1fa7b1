#include "files/system_calls.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <thread>

#include "files/file_system.h"

#ifdef _WIN32
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
// io.h must be included after windows.h.
#include <io.h>
#endif

namespace quorvel {

namespace fs = std::filesystem;

namespace {

// The maximum number of bytes for one read or write call; all platforms support it.
constexpr std::size_t LARGEST_TRANSFER = std::size_t{1} << 30U;

}  // namespace

std::int64_t ReadBytes(int handle, char* into, std::size_t length) {
  std::size_t done = 0;
  while (done < length) {
    const auto part = static_cast<unsigned>(std::min(length - done, LARGEST_TRANSFER));
    const auto got = ::read(handle, into + done, part);
    if (got == 0) break;
    if (got > 0) {
      done += static_cast<std::size_t>(got);
    } else if (errno != EINTR) {
      return -1;
    }
  }
  return static_cast<std::int64_t>(done);
}

bool WriteBytes(int handle, std::string_view bytes) {
  while (!bytes.empty()) {
    const auto part = static_cast<unsigned>(std::min(bytes.size(), LARGEST_TRANSFER));
    const auto written = ::write(handle, bytes.data(), part);
    if (written >= 0) {
      bytes.remove_prefix(static_cast<std::size_t>(written));
    } else if (errno != EINTR) {
      return false;
    }
  }
  return true;
}

int NumberOf(const std::error_code& error) { return error.default_error_condition().value(); }

Fault SystemFault(FaultKind kind, const std::string& path, int errorNumber) {
  return {kind, path, SystemMessage(errorNumber), errorNumber};
}

Fault NotAFile(FaultKind kind, const std::string& path) {
  return {kind, path, "Is a device or a pipe, not a file"};
}

fs::path ResolveLinks(fs::path path, std::error_code& error) {
  constexpr int MOST_LINKS = 40;  // the limit of the systems themselves
  for (int links = 0; fs::is_symlink(fs::symlink_status(path, error)); ++links) {
    if (links == MOST_LINKS) error = std::make_error_code(std::errc::too_many_symbolic_link_levels);
    const fs::path next = error ? fs::path() : fs::read_symlink(path, error);
    if (error) return {};
    path = path.parent_path() / next;
  }
  if (error == std::errc::no_such_file_or_directory) error.clear();
  return path;
}

#ifdef _WIN32
namespace {

// EBUSY reports a file that another program has locked: unlike EACCES, it is not about permissions.
bool IsSharingFault(unsigned long systemError) {
  return systemError == ERROR_SHARING_VIOLATION || systemError == ERROR_LOCK_VIOLATION;
}

}  // namespace

fs::path ToPath(const std::string& path) {
  return fs::path(std::u8string(path.begin(), path.end()));
}

std::string FromPath(const fs::path& path) {
  const std::u8string text = path.u8string();
  return {text.begin(), text.end()};
}

// Names such as "NUL" are devices in every folder, which the standard library does not know.
fs::file_status StatusOf(const fs::path& path, std::error_code& error) {
  constexpr std::size_t LONGEST_NAME = 32;
  std::wstring device(LONGEST_NAME, L'\0');
  const unsigned long length =
      ::GetFullPathNameW(path.c_str(), LONGEST_NAME, device.data(), nullptr);
  device.resize(std::min<std::size_t>(length, LONGEST_NAME));
  if (device.starts_with(L"\\\\.\\")) return fs::file_status(fs::file_type::character);
  return fs::status(path, error);
}

int OpenFile(const fs::path& path, int flags, bool /*isPrivate*/) {
  const int handle = _wopen(path.c_str(), flags | O_BINARY | O_NOINHERIT, 0666);
  if (handle < 0 && errno == EACCES) {
    std::error_code error;
    const int number = IsSharingFault(_doserrno) ? EBUSY : EACCES;
    errno = fs::is_directory(path, error) ? EISDIR : number;
  }
  return handle;
}

int OpenToRead(const fs::path& path) { return OpenFile(path, O_RDONLY); }

std::optional<OpenStatus> StatusOf(int handle) {
  const auto file = reinterpret_cast<HANDLE>(::_get_osfhandle(handle));
  if (::GetFileType(file) != FILE_TYPE_DISK) return OpenStatus{};
  const std::int64_t length = ::_filelengthi64(handle);
  if (length < 0) return std::nullopt;
  return OpenStatus{true, length};
}

int SyncFile(int handle) { return ::_commit(handle); }

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

// For a file that is open in another program, Windows reports only that access is denied. Opening
// the target again gives the real reason.
int RenamingFault(const std::error_code& error, const fs::path& target) {
  std::error_code ignored;
  return fs::exists(target, ignored) && !IsWritable(target) ? errno : NumberOf(error);
}
#else
fs::path ToPath(const std::string& path) { return {path}; }

std::string FromPath(const fs::path& path) { return path.string(); }

fs::file_status StatusOf(const fs::path& path, std::error_code& error) {
  return fs::status(path, error);
}

int OpenFile(const fs::path& path, int flags, bool isPrivate) {
  return ::open(path.c_str(), flags | O_CLOEXEC, isPrivate ? 0600 : 0666);  // NOLINT(*-vararg)
}

// Another program may hold a lease on the file. A non-blocking open only asks for the lease to be
// released, so it is repeated.
int OpenToRead(const fs::path& path) {
  constexpr std::chrono::milliseconds PAUSE(10);
  constexpr int MOST_PAUSES = 500;
  int handle = OpenFile(path, O_RDONLY | O_NONBLOCK | O_NOCTTY);
  for (int i = 0; handle < 0 && errno == EWOULDBLOCK && i < MOST_PAUSES; ++i) {
    std::this_thread::sleep_for(PAUSE);
    handle = OpenFile(path, O_RDONLY | O_NONBLOCK | O_NOCTTY);
  }
  return handle;
}

std::optional<OpenStatus> StatusOf(int handle) {
  struct stat status = {};
  if (::fstat(handle, &status) != 0) return std::nullopt;
  return OpenStatus{S_ISREG(status.st_mode), std::int64_t{status.st_size}};
}

int SyncFile(int handle) { return ::fsync(handle); }

bool IsWritable(const fs::path& path) { return ::access(path.c_str(), W_OK) == 0; }

int RenamingFault(const std::error_code& error, const fs::path& /*target*/) {
  return NumberOf(error);
}
#endif

}  // namespace quorvel
