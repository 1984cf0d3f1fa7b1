// Waits for the result of another thread while events run.
#pragma once

#include <chrono>

#include "files/digest.h"
#include "util/progress.h"

namespace quorvel {

// Calls `isThere`, which waits up to the given time, until it returns true. Returns false when a
// stop is requested first.
template <typename IsThere>
[[nodiscard]] bool WaitUntil(const IsThere& isThere, Progress& progress) {
  constexpr std::chrono::milliseconds PATIENCE(5);
  while (!progress.StopRequested()) {
    if (isThere(PATIENCE)) return true;
    progress.YieldNow();
  }
  return false;
}

// Waits for the digest. Returns false when a stop is requested first.
[[nodiscard]] inline bool WaitFor(const InputDigest& digest, Progress& progress) {
  return WaitUntil([&digest](auto patience) { return digest.IsThere(patience); }, progress);
}

}  // namespace quorvel
