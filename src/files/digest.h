// The digest that ties a concordance and an index file to the exact input they were made from: the
// MD5 digest of its bytes.
#pragma once

#include <atomic>
#include <chrono>
#include <future>
#include <string>
#include <string_view>

#include "files/read_file.h"

namespace quorvel {

// The digest of `bytes` as 32 upper-case hexadecimal digits. Empty for no bytes.
[[nodiscard]] std::string DigestOf(std::string_view bytes);

// True when `text` has the form of such a digest.
[[nodiscard]] bool IsDigest(std::string_view text);

struct FileDigest {
  std::string text;  // empty when there is no digest
  int status = 0;    // 0 on success, negative on failure
  std::string message;
};

// Returns the digest of a file. The status is -1 for an empty file, -2 for a folder, -3 for a
// drive, -4 for an empty path and -5 when reading failed.
[[nodiscard]] FileDigest ComputeFileDigest(const std::string& path);

// The digest of an input. It is computed on a thread of its own where the system provides one, and
// otherwise when it is requested.
class InputDigest {
 public:
  // Releases the bytes as soon as the digest is computed.
  explicit InputDigest(InputBytes input);

  // Cancels a computation that is still running, so that the destructor need not wait for its end.
  ~InputDigest() { wanted_ = false; }

  InputDigest(const InputDigest&) = delete;
  InputDigest& operator=(const InputDigest&) = delete;

  // Waits up to `patience`. Returns true when Text() will return without waiting.
  [[nodiscard]] bool IsReady(std::chrono::milliseconds patience) const;

  // Waits for the digest and returns it.
  [[nodiscard]] const std::string& Text() const { return digest_.get(); }

 private:
  std::atomic<bool> wanted_ = true;
  std::shared_future<std::string> digest_;  // its destructor waits for the thread, so it is last
};

}  // namespace quorvel
