// Waiting for what another thread makes, while events run.
#pragma once

#include <chrono>

#include "files/digest.h"
#include "util/progress.h"

namespace quorvel {

// Asks `isThere`, which waits up to the time that it is given, until it says yes. False when a stop
// was requested before.
template <typename IsThere>
[[nodiscard]] bool WaitUntil(const IsThere& isThere, Progress& progress) {
  constexpr std::chrono::milliseconds PATIENCE(5);
  while (!progress.StopRequested()) {
    if (isThere(PATIENCE)) return true;
    progress.YieldNow();
  }
  return false;
}

// Waits until the digest is there. False when a stop was requested before.
[[nodiscard]] inline bool WaitFor(const InputDigest& digest, Progress& progress) {
  return WaitUntil([&digest](auto patience) { return digest.IsThere(patience); }, progress);
}

}  // namespace quorvel
