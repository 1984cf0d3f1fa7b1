// A disk that is full, for as long as a scope lasts.
#pragma once

#include <cstdint>
#ifndef _WIN32
#include <sys/resource.h>

#include <csignal>
#endif

namespace quorvel {

// Lets no file grow beyond so many bytes while it lives. Windows has no such limit: a test that
// is about one is skipped there.
class FileSizeLimit {
 public:
#ifdef _WIN32
  explicit FileSizeLimit(std::uint64_t /*bytes*/) {}
  ~FileSizeLimit() = default;
#else
  explicit FileSizeLimit(std::uint64_t bytes) : oldHandler_(std::signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &old_);
    const rlimit limit = {bytes, old_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  ~FileSizeLimit() {
    setrlimit(RLIMIT_FSIZE, &old_);
    std::signal(SIGXFSZ, oldHandler_);
  }
#endif
  FileSizeLimit(const FileSizeLimit&) = delete;
  FileSizeLimit& operator=(const FileSizeLimit&) = delete;

#ifndef _WIN32
 private:
  rlimit old_ = {};
  void (*oldHandler_)(int);
#endif
};

}  // namespace quorvel
