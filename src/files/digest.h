// The digest that ties a concordance and an index file to the exact input they
// were made from: MD5 over the raw bytes of the file.
#pragma once

#include <atomic>
#include <future>
#include <string>

#include "files/file_system.h"
#include "util/user_interface.h"

namespace quorvel {

struct FileDigest {
  std::string text;  // 32 upper-case hexadecimal digits; empty when there is no digest
  int status = 0;    // 0 on success, else negative
  std::string message;
};

// The digest of a file: -1 for an empty file, -2 for a folder, -3 for a drive, -4
// for no path, -5 when reading failed or was stopped. Lets events run meanwhile.
[[nodiscard]] FileDigest ComputeFileDigest(const std::string& path, UserInterface& ui);

// A digest with what its file was like just before: as long as it is like that, the digest
// need not be computed anew.
struct InputDigest {
  std::string path;
  FileStamp stamp;
  std::string text;  // empty when there is none
};

[[nodiscard]] InputDigest ComputeInputDigest(const std::string& path, UserInterface& ui);

// Whether `digest` is that of the file at `path` as it is now.
[[nodiscard]] bool IsDigestOf(const InputDigest& digest, const std::string& path);

// Computes the digest of an input beside other work, where the system has a thread for that.
class DigestUnderWay {
 public:
  explicit DigestUnderWay(const std::string& path);

  // Does not wait for a digest that nobody has taken.
  ~DigestUnderWay() { wanted_ = false; }

  DigestUnderWay(const DigestUnderWay&) = delete;
  DigestUnderWay& operator=(const DigestUnderWay&) = delete;

  // To be called once.
  [[nodiscard]] InputDigest Take() { return digest_.get(); }

 private:
  std::atomic<bool> wanted_ = true;
  std::future<InputDigest> digest_;  // its end waits for the thread, so it goes first
};

}  // namespace quorvel
