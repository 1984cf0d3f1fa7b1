// A library that is loaded before the C library (LD_PRELOAD) and lets the program run out of
// memory. It numbers the requests for memory of the program, its libraries and all threads,
// starting at 1 when main starts.
//
// QUORVEL_FAULT        the number of the request that fails; with "+" behind it, every later one
//                      fails too
// QUORVEL_FAULT_LOG    a file that gets the number of requests at the end of main

#include <dlfcn.h>
#include <fcntl.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>

// The functions that really allocate memory.
// NOLINTBEGIN(readability-identifier-naming,bugprone-reserved-identifier)
extern "C" {
void* __libc_malloc(std::size_t length);
void* __libc_calloc(std::size_t count, std::size_t length);
void* __libc_realloc(void* memory, std::size_t length);
}

namespace {

using Main = int (*)(int, char**, char**);

struct Plan {
  Main main = nullptr;
  std::atomic<bool> counts = false;
  std::atomic<long> count = 0;
  long at = 0;
  bool stays = false;
};

// NOLINTNEXTLINE(cppcoreguidelines-avoid-non-const-global-variables): no memory can be asked for it
constinit Plan plan;

bool Fails() {
  if (!plan.counts) return false;
  const long number = ++plan.count;
  if (plan.at == 0 || number < plan.at || (number > plan.at && !plan.stays)) return false;
  errno = ENOMEM;
  return true;
}

int CountingMain(int argumentCount, char** arguments, char** environment) {
  if (const char* fault = std::getenv("QUORVEL_FAULT")) {
    plan.at = std::atol(fault);
    plan.stays = std::strchr(fault, '+') != nullptr;
  }
  const char* const log = std::getenv("QUORVEL_FAULT_LOG");
  const int handle = log == nullptr ? -1 : ::open(log, O_WRONLY | O_CREAT | O_CLOEXEC, 0666);
  plan.counts = true;
  const int status = plan.main(argumentCount, arguments, environment);
  plan.counts = false;
  if (handle >= 0) ::dprintf(handle, "%ld\n", plan.count.load());
  plan.counts = true;
  return status;
}

}  // namespace

extern "C" {

void* malloc(std::size_t length) { return Fails() ? nullptr : __libc_malloc(length); }

void* calloc(std::size_t count, std::size_t length) {
  return Fails() ? nullptr : __libc_calloc(count, length);
}

void* realloc(void* memory, std::size_t length) {
  return Fails() ? nullptr : __libc_realloc(memory, length);
}

// The C library calls main from here.
int __libc_start_main(Main main, int argumentCount, char** arguments, void (*initialize)(),
                      void (*finish)(), void (*finishLoader)(), void* stackEnd) {
  plan.main = main;
  auto* const start =
      reinterpret_cast<decltype(&__libc_start_main)>(::dlsym(RTLD_NEXT, "__libc_start_main"));
  return start(CountingMain, argumentCount, arguments, initialize, finish, finishLoader, stackEnd);
}

}  // extern "C"
// NOLINTEND(readability-identifier-naming,bugprone-reserved-identifier)
