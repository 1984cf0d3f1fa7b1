// A machine that is short of memory, for as long as a scope lasts.
#pragma once

#include <sys/resource.h>
#include <unistd.h>

#include <cstdint>
#include <fstream>

namespace quorvel {

// A sanitizer takes its memory by terabytes: a test with a limit is skipped there.
#ifdef __SANITIZE_ADDRESS__
inline constexpr bool CAN_LIMIT_MEMORY = false;
#else
inline constexpr bool CAN_LIMIT_MEMORY = true;
#endif

// Lets this process take no more than so many megabytes beside what it has.
class MemoryLimit {
 public:
  explicit MemoryLimit(std::uint64_t megabytes) {
    std::uint64_t pages = 0;
    std::ifstream("/proc/self/statm") >> pages;
    const auto page = static_cast<std::uint64_t>(::sysconf(_SC_PAGESIZE));
    getrlimit(RLIMIT_AS, &old_);
    const rlimit limit = {pages * page + (megabytes << 20U), old_.rlim_max};
    setrlimit(RLIMIT_AS, &limit);
  }
  ~MemoryLimit() { setrlimit(RLIMIT_AS, &old_); }
  MemoryLimit(const MemoryLimit&) = delete;
  MemoryLimit& operator=(const MemoryLimit&) = delete;

 private:
  rlimit old_ = {};
};

}  // namespace quorvel
