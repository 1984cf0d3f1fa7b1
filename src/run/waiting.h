// Waits for the result of another thread while events run.
#pragma once

#include <chrono>

#include "files/digest.h"
#include "util/progress.h"

namespace quorvel {

// Calls `isReady`, which waits up to the given time, until it returns true. Returns false when a
// stop is requested first.
template <typename IsReady>
[[nodiscard]] bool WaitUntil(const IsReady& isReady, Progress& progress) {
  constexpr std::chrono::milliseconds PATIENCE(5);
  while (!progress.StopRequested()) {
    if (isReady(PATIENCE)) return true;
    progress.YieldNow();
  }
  return false;
}

// Waits for the digest. Returns false when a stop is requested first.
[[nodiscard]] inline bool WaitFor(const InputDigest& digest, Progress& progress) {
  return WaitUntil([&digest](auto patience) { return digest.IsReady(patience); }, progress);
}

}  // namespace quorvel
