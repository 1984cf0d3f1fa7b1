// Runs work in the background, on a thread where the system provides one.
#pragma once

#include <future>
#include <system_error>
#include <type_traits>

namespace quorvel {

// Starts `work` on its own thread. If the system cannot start a thread, the work runs when its
// result is requested. The destructor of the future waits for the thread.
template <typename Work>
[[nodiscard]] std::future<std::invoke_result_t<Work>> RunInBackground(const Work& work) {
  // Each attempt copies `work`. The policy async|deferred of the library would move the work into
  // the thread before failing to start it.
  try {
    return std::async(std::launch::async, work);
  } catch (const std::system_error&) {
    return std::async(std::launch::deferred, work);
  }
}

}  // namespace quorvel
