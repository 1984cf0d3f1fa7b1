// Waiting for what another thread makes, while events run.
#pragma once

#include <chrono>

#include "files/digest.h"
#include "util/progress.h"

namespace quorvel {

// Waits until the digest is there. False when a stop was requested before.
[[nodiscard]] inline bool WaitFor(const InputDigest& digest, Progress& progress) {
  constexpr std::chrono::milliseconds PATIENCE(5);
  while (!progress.StopRequested()) {
    if (digest.IsThere(PATIENCE)) return true;
    progress.YieldNow();
  }
  return false;
}

}  // namespace quorvel
