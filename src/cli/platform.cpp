#include "cli/platform.h"

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <memory>
#include <new>
#ifdef __GLIBC__
#include <malloc.h>
#include <sys/resource.h>
#endif
#ifdef _WIN32
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
// The headers of Windows want to be included in this order.
#include <fcntl.h>
#include <io.h>
#include <shellapi.h>

#include <filesystem>
#else
#include <unistd.h>
#endif

#include "util/large_pages.h"

namespace quorvel {

#ifdef __GLIBC__
namespace {

constexpr int STEP = 16 << 20;

// All that most runs need, in large pages from end to end: texts that lie there side by side have
// no seams of small ones. It takes no memory until that is written to, but addresses: where the
// user has limited these, they are left to what will need them.
void TakeFirstStep() {
  constexpr int FIRST_STEP = 256 << 20;
  for (const auto resource : {RLIMIT_AS, RLIMIT_DATA}) {
    rlimit limit = {};
    if (::getrlimit(resource, &limit) != 0 || limit.rlim_cur != RLIM_INFINITY) return;
  }
  // A piece that is larger than what is there takes the first step behind itself.
  ::mallopt(M_TOP_PAD, FIRST_STEP);
  const std::unique_ptr<char[]> piece(new (std::nothrow) char[STEP]);
  const auto* const end = static_cast<const char*>(::sbrk(0));
  if (piece != nullptr && std::less<>()(piece.get(), end)) {
    AdviseLargePages(piece.get(), static_cast<std::size_t>(end - piece.get()));
  }
}

}  // namespace

// What the words of a text need comes in small pieces, for which the library by itself asks for
// 128 KB more each time; a table that grows it asks for anew, and gives back, and asks for again.
void TakeMemoryInLargeSteps() {
  constexpr int LARGEST_KEPT = 32 << 20;
  constexpr int GIVEN_BACK_ABOVE = 1 << 30;
  ::mallopt(M_MMAP_THRESHOLD, LARGEST_KEPT);
  ::mallopt(M_TRIM_THRESHOLD, GIVEN_BACK_ABOVE);
  TakeFirstStep();
  ::mallopt(M_TOP_PAD, STEP);
}
#else
void TakeMemoryInLargeSteps() {}
#endif

#ifdef _WIN32
// What main() is given has lost all characters beyond the code page of the system.
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

// The console outlives the program and belongs to the programs that come after it too.
void PrepareTerminal() {
  static const unsigned codePage = ::GetConsoleOutputCP();
  if (codePage == 0 || !::SetConsoleOutputCP(CP_UTF8)) return;
  std::atexit([] { ::SetConsoleOutputCP(codePage); });
}

void LetStandardOutputBeBytes() { ::_setmode(_fileno(stdout), _O_BINARY); }

// Other devices, such as NUL, have no console mode.
bool IsTerminal(Stream stream) {
  unsigned long mode = 0;
  const auto handle = reinterpret_cast<HANDLE>(::_get_osfhandle(static_cast<int>(stream)));
  return ::GetConsoleMode(handle, &mode) != 0;
}

void CatchSignals(void (*handle)(int)) {
  for (const int signal : {SIGINT, SIGTERM, SIGBREAK}) std::signal(signal, handle);
}
#else
std::vector<std::string> ProgramArguments(int argumentCount, char** arguments) {
  return {arguments + std::min(argumentCount, 1), arguments + argumentCount};
}

void PrepareTerminal() {}

void LetStandardOutputBeBytes() {}

bool IsTerminal(Stream stream) { return ::isatty(static_cast<int>(stream)) != 0; }

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
