// One entry out of a zip archive that is in memory.
//
// All that the program wants of a zip library stands behind this one function, so
// that the library can be exchanged. The name of the entry comes from the caller,
// never from the archive.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "files/read_file.h"
#include "util/fault.h"

namespace quorvel {

struct UnpackedEntry {
  std::uint64_t length = 0;  // of what was unpacked, in bytes
  bool isDamaged = false;    // no archive, no such entry, encrypted, damaged or of another checksum
};

// Hands the bytes of the entry `name`, whose folders end in "/", to `write`, front to back, as long
// as that gives true. Stops as soon as the entry turns out to be longer than `limit` bytes,
// whatever the archive says of its length: `bodyTooLarge`. `temporaryFolderFull` where `write` gave
// false.
[[nodiscard]] Result<UnpackedEntry> UnpackEntry(const InputBytes& archive, const std::string& name,
                                                std::uint64_t limit,
                                                const std::function<bool(std::string_view)>& write);

}  // namespace quorvel
