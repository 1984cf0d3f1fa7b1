// Work beside the work at hand, on a thread where the system has one.
#pragma once

#include <future>
#include <system_error>
#include <type_traits>

namespace quorvel {

// Begins the work on a thread of its own. Where the system starts none, it is done by whoever asks
// for its result. The future's end waits for the thread.
template <typename Work>
[[nodiscard]] std::future<std::invoke_result_t<Work>> DoBeside(const Work& work) {
  // Each try has a copy of its own: the library's own policy of "a thread, or later" moves the work
  // into the thread that it then cannot start.
  try {
    return std::async(std::launch::async, work);
  } catch (const std::system_error&) {
    return std::async(std::launch::deferred, work);
  }
}

}  // namespace quorvel
