#include "cli/platform.h"

#include <algorithm>
#include <csignal>
#include <cstdlib>
#ifdef __GLIBC__
#include <malloc.h>
#include <sys/resource.h>
#endif
#ifdef _WIN32
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
// The order of these headers matters on Windows.
#include <fcntl.h>
#include <io.h>
#include <shellapi.h>

#include <filesystem>
#else
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#endif

namespace quorvel {

#ifdef __GLIBC__
namespace {

// True when the user has limited the address space.
bool AreLimited() {
  for (const auto resource : {RLIMIT_AS, RLIMIT_DATA}) {
    rlimit limit = {};
    if (::getrlimit(resource, &limit) != 0 || limit.rlim_cur != RLIM_INFINITY) return true;
  }
  return false;
}

}  // namespace

// The words of a text need many small allocations, for which the C library would extend the heap by
// 128 KB each time. It would also return the memory of growing tables to the system and request it
// again. Large steps use address space that may never be needed, so they are not taken where that
// is limited: a run that fits into the limit could fail.
void TakeMemoryInLargeSteps() {
  if (AreLimited()) return;
  constexpr int STEP = 16 << 20;
  constexpr int LARGEST_KEPT = 32 << 20;
  constexpr int GIVEN_BACK_ABOVE = 1 << 30;
  ::mallopt(M_MMAP_THRESHOLD, LARGEST_KEPT);
  ::mallopt(M_TRIM_THRESHOLD, GIVEN_BACK_ABOVE);
  ::mallopt(M_TOP_PAD, STEP);
}
#else
void TakeMemoryInLargeSteps() {}
#endif

#ifdef _WIN32
// Windows may refuse larger writes to a console.
constexpr std::size_t LARGEST_PIECE = std::size_t{1} << 15U;

// The arguments of main() have lost all characters outside the system's code page.
std::vector<std::string> ProgramArguments(int /*argumentCount*/, char** /*arguments*/) {
  int count = 0;
  wchar_t** const wide = ::CommandLineToArgvW(::GetCommandLineW(), &count);
  std::vector<std::string> result;
  for (int i = 1; wide != nullptr && i < count; ++i) {
    const std::u8string text = std::filesystem::path(wide[i]).u8string();
    result.emplace_back(text.begin(), text.end());
  }
  ::LocalFree(wide);
  return result;
}

// The code page is restored, because the console is also used by later programs.
void PrepareTerminal() {
  static const unsigned codePage = ::GetConsoleOutputCP();
  if (codePage == 0 || !::SetConsoleOutputCP(CP_UTF8)) return;
  std::atexit([] { ::SetConsoleOutputCP(codePage); });
}

void SetBinaryMode(Stream stream) { ::_setmode(static_cast<int>(stream), _O_BINARY); }

std::string FilePathOf(Stream stream) {
  constexpr std::size_t LONGEST_PATH = 32768;
  const auto file = reinterpret_cast<HANDLE>(::_get_osfhandle(static_cast<int>(stream)));
  if (::GetFileType(file) != FILE_TYPE_DISK) return {};
  std::wstring path(LONGEST_PATH, L'\0');
  path.resize(::GetFinalPathNameByHandleW(file, path.data(), LONGEST_PATH, FILE_NAME_NORMALIZED));
  const std::u8string text = std::filesystem::path(path).u8string();
  return {text.begin(), text.end()};
}

// Other devices, such as NUL, have no console mode.
bool IsTerminal(Stream stream) {
  unsigned long mode = 0;
  const auto handle = reinterpret_cast<HANDLE>(::_get_osfhandle(static_cast<int>(stream)));
  return ::GetConsoleMode(handle, &mode) != 0;
}

bool HasInput() { return true; }

std::ptrdiff_t ReadSome(char* into, std::size_t length) {
  const auto part = static_cast<unsigned>(std::min(length, LARGEST_PIECE));
  return ::_read(static_cast<int>(Stream::input), into, part);
}

// Windows cannot tell whether a stream accepts bytes.
std::ptrdiff_t WriteSome(Stream stream, std::string_view bytes) {
  const auto part = static_cast<unsigned>(std::min(bytes.size(), LARGEST_PIECE));
  return ::_write(static_cast<int>(stream), bytes.data(), part);
}

void CatchSignals(void (*handle)(int)) {
  for (const int signal : {SIGINT, SIGTERM, SIGBREAK}) std::signal(signal, handle);
}
#else
std::vector<std::string> ProgramArguments(int argumentCount, char** arguments) {
  return {arguments + std::min(argumentCount, 1), arguments + argumentCount};
}

void PrepareTerminal() {}

void SetBinaryMode(Stream /*stream*/) {}

std::string FilePathOf(Stream stream) {
  const int handle = static_cast<int>(stream);
  struct stat status = {};
  const bool isFile = ::fstat(handle, &status) == 0 && S_ISREG(status.st_mode);
  return isFile ? "/dev/fd/" + std::to_string(handle) : "";
}

bool IsTerminal(Stream stream) { return ::isatty(static_cast<int>(stream)) != 0; }

constexpr int PATIENCE = 100;  // milliseconds

bool HasInput() {
  pollfd ready = {STDIN_FILENO, POLLIN, 0};
  return ::poll(&ready, 1, PATIENCE) > 0;
}

std::ptrdiff_t ReadSome(char* into, std::size_t length) {
  return ::read(STDIN_FILENO, into, length);
}

// A pipe that is ready accepts PIPE_BUF bytes without blocking. With more bytes the call may block,
// and a signal that arrived just before it would be handled only after the reader continues.
std::ptrdiff_t WriteSome(Stream stream, std::string_view bytes) {
  const int handle = static_cast<int>(stream);
  struct stat status = {};
  if (::fstat(handle, &status) != 0 || !S_ISREG(status.st_mode)) {
    bytes = bytes.substr(0, PIPE_BUF);
    pollfd ready = {handle, POLLOUT, 0};
    const int count = ::poll(&ready, 1, PATIENCE);
    if (count == 0 || (count < 0 && errno == EINTR)) return 0;
  }
  const ssize_t taken = ::write(handle, bytes.data(), bytes.size());
  return taken < 0 && (errno == EINTR || errno == EAGAIN) ? 0 : taken;
}

void CatchSignals(void (*handle)(int)) {
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
    struct sigaction action = {};
    ::sigaction(signal, nullptr, &action);
    if (action.sa_handler == SIG_IGN) continue;
    action = {};
    action.sa_handler = handle;
    ::sigaction(signal, &action, nullptr);
  }
}
#endif

}  // namespace quorvel
