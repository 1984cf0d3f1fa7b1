// The digest that ties a concordance and an index file to the exact input they
// were made from: MD5 over the raw bytes of the file.
#pragma once

#include <string>

#include "util/user_interface.h"

namespace quorvel {

struct FileDigest {
  std::string text;  // 32 upper-case hexadecimal digits; empty when there is no digest
  int status = 0;    // 0 on success, else negative
  std::string message;
};

// The digest of a file: -1 for an empty file, -2 for a folder, -3 for a drive, -4
// for no path, -5 when reading failed. Lets events run meanwhile.
[[nodiscard]] FileDigest ComputeFileDigest(const std::string& path, UserInterface& ui);

}  // namespace quorvel
