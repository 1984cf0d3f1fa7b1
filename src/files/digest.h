// The digest that ties a concordance and an index file to the exact input they
// were made from: MD5 over its raw bytes.
#pragma once

#include <atomic>
#include <chrono>
#include <future>
#include <string>
#include <string_view>

#include "files/read_file.h"

namespace quorvel {

// The digest of some bytes: 32 upper-case hexadecimal digits; empty for none.
[[nodiscard]] std::string DigestOf(std::string_view bytes);

// Whether that may be such a digest.
[[nodiscard]] bool IsDigest(std::string_view text);

struct FileDigest {
  std::string text;  // empty when there is no digest
  int status = 0;    // 0 on success, else negative
  std::string message;
};

// The digest of a file: -1 for an empty file, -2 for a folder, -3 for a drive, -4
// for no path, -5 when reading failed.
[[nodiscard]] FileDigest ComputeFileDigest(const std::string& path);

// The digest of an input, computed beside other work where the system has a thread for that, and
// else when it is asked for.
class InputDigest {
 public:
  // Lets go of the bytes as soon as they are done with.
  explicit InputDigest(InputBytes input);

  // Does not wait for a digest that nobody wants any more.
  ~InputDigest() { wanted_ = false; }

  InputDigest(const InputDigest&) = delete;
  InputDigest& operator=(const InputDigest&) = delete;

  // Waits for it up to that long; true when Text need not wait.
  [[nodiscard]] bool IsThere(std::chrono::milliseconds patience) const;

  // Waits for it.
  [[nodiscard]] const std::string& Text() const { return digest_.get(); }

 private:
  std::atomic<bool> wanted_ = true;
  std::shared_future<std::string> digest_;  // its end waits for the thread, so it goes first
};

}  // namespace quorvel
