#include "files/system_calls.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "files/file_system.h"

#ifdef _WIN32
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
// The headers of Windows want to be included in this order.
#include <io.h>

#include <algorithm>
#endif

namespace quorvel {

namespace fs = std::filesystem;

int NumberOf(const std::error_code& error) { return error.default_error_condition().value(); }

Fault SystemFault(FaultKind kind, const std::string& path, int errorNumber) {
  return {kind, path, SystemMessage(errorNumber), errorNumber};
}

#ifdef _WIN32
namespace {

// A file that another program keeps to itself is no matter of rights: EBUSY stands for it here.
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

int OpenFile(const fs::path& path, int flags, bool /*isPrivate*/) {
  const int handle = _wopen(path.c_str(), flags | O_BINARY | O_NOINHERIT, 0666);
  if (handle < 0 && errno == EACCES) {
    std::error_code error;
    const int number = IsSharingFault(_doserrno) ? EBUSY : EACCES;
    errno = fs::is_directory(path, error) ? EISDIR : number;
  }
  return handle;
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

// Of a file that is open elsewhere, which may have been opened since, the system only says that it
// denies it.
int RenamingFault(const std::error_code& error, const fs::path& target) {
  std::error_code ignored;
  return fs::exists(target, ignored) && !IsWritable(target) ? errno : NumberOf(error);
}

void TakeAttributesOf(int /*handle*/, const fs::path& /*target*/) {}
#else
fs::path ToPath(const std::string& path) { return {path}; }

std::string FromPath(const fs::path& path) { return path.string(); }

fs::file_status StatusOf(const fs::path& path, std::error_code& error) {
  return fs::status(path, error);
}

int OpenFile(const fs::path& path, int flags, bool isPrivate) {
  return ::open(path.c_str(), flags | O_CLOEXEC, isPrivate ? 0600 : 0666);  // NOLINT(*-vararg)
}

int SyncFile(int handle) { return ::fsync(handle); }

bool IsWritable(const fs::path& path) { return ::access(path.c_str(), W_OK) == 0; }

int RenamingFault(const std::error_code& error, const fs::path& /*target*/) {
  return NumberOf(error);
}

void TakeAttributesOf(int handle, const fs::path& target) {
  struct stat status = {};
  // What it holds is for those who may read the old one: for the owner, if in doubt.
  if (::stat(target.c_str(), &status) != 0) return;
  [[maybe_unused]] const int ownerKept = ::fchown(handle, status.st_uid, status.st_gid);
  ::fchmod(handle, status.st_mode & 07777U);
}
#endif

}  // namespace quorvel
