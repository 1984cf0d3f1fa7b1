#include "files/file_system.h"

#include <sys/stat.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <new>
#include <system_error>

#include "files/system_calls.h"

#ifdef _WIN32
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
#endif

namespace quorvel {
namespace {

namespace fs = std::filesystem;

#ifdef _WIN32
// The root of the first fixed drive from "C:" on, or empty when there is none.
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

#else
fs::path ProgramPath() {
  std::error_code error;
  return fs::read_symlink("/proc/self/exe", error);
}

#endif

// The path where a file would be created, with links resolved. Empty when the system cannot tell.
fs::path PlaceOf(const std::string& path) {
  std::error_code error;
  fs::path place = ResolveLinks(ToPath(path), error);
  if (!error) place = fs::absolute(place, error);
  if (!error) place = fs::weakly_canonical(place, error);
  if (error == std::errc::not_enough_memory) throw std::bad_alloc();
  return error ? fs::path() : place;
}

// True when a file may exist but the system refuses to tell.
bool IsWithheld(const std::error_code& error) {
  return error == std::errc::permission_denied || error == std::errc::io_error;
}

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
  if (!error) return false;
  const bool here = FileExists(path);
  if (here != FileExists(other)) return false;
  if (here) return true;
  const fs::path place = PlaceOf(path);
  return !place.empty() && place == PlaceOf(other);
}

std::string CanonicalPath(const std::string& path) {
  const fs::path asGiven = ToPath(path);
  const fs::path folder = asGiven.parent_path();
  std::error_code error;
  const fs::path canonical = fs::canonical(folder.empty() ? fs::path(".") : folder, error);
  return error ? path : FromPath(canonical / asGiven.filename());
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

FolderMaking MakeFolder(const std::string& path) {
  if (::CreateDirectoryW(ToPath(path).c_str(), nullptr) != 0) return FolderMaking::made;
  return ::GetLastError() == ERROR_ALREADY_EXISTS ? FolderMaking::exists : FolderMaking::failed;
}

bool RemoveFileOrFolder(const std::string& path) {
  std::error_code error;
  fs::remove(ToPath(path), error);
  return !error;
}
#else
std::string TemporaryBase() {
  std::error_code error;
  return FromPath(fs::temp_directory_path(error));
}

std::string UserConfigurationFolder() {
  // Called before any thread is started.
  const char* configured = std::getenv("XDG_CONFIG_HOME");  // NOLINT(concurrency-mt-unsafe)
  if (configured != nullptr && *configured == '/') return configured;
  const char* home = std::getenv("HOME");  // NOLINT(concurrency-mt-unsafe)
  if (home != nullptr && *home == '/') return JoinPath(home, ".config");
  return FromPath(ProgramPath().parent_path());
}

FolderMaking MakeFolder(const std::string& path) {
  constexpr ::mode_t OWNER_ONLY = 0700;
  if (::mkdir(path.c_str(), OWNER_ONLY) == 0) return FolderMaking::made;
  return errno == EEXIST ? FolderMaking::exists : FolderMaking::failed;
}

// Allocates no memory.
bool RemoveFileOrFolder(const std::string& path) {
  return std::remove(path.c_str()) == 0 || errno == ENOENT;
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

std::string SystemMessage(int errorNumber) {
#ifdef _WIN32
  if (errorNumber == EBUSY) return "The file is open in another program";
#endif
  return std::error_code(errorNumber, std::generic_category()).message();
}

}  // namespace quorvel
