// Entries out of a zip archive that is in memory.
//
// All that the program wants of a zip library stands behind this one class, so that the library can
// be exchanged. Nothing is ever written to where a name leads.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "files/read_file.h"
#include "input/zip_directory.h"
#include "util/fault.h"

namespace quorvel {

struct UnpackedEntry {
  std::uint64_t length = 0;  // of what was unpacked, in bytes
  bool isDamaged = false;    // no archive, no such entry, encrypted, damaged or of another checksum
};

// An archive of which several entries are wanted, one after the other.
class ArchiveReader {
 public:
  explicit ArchiveReader(InputBytes archive);
  ~ArchiveReader();
  ArchiveReader(const ArchiveReader&) = delete;
  ArchiveReader& operator=(const ArchiveReader&) = delete;

  // Hands the bytes of the entry `name`, whose folders end in "/", to `write`, front to back, as
  // long as that gives true. Stops as soon as the entry turns out to be longer than `limit` bytes,
  // whatever the archive says of its length: `bodyTooLarge`. `temporaryFolderFull` where `write`
  // gave false.
  [[nodiscard]] Result<UnpackedEntry> Unpack(const std::string& name, std::uint64_t limit,
                                             const std::function<bool(std::string_view)>& write);

 private:
  struct Library;  // what the library holds

  [[nodiscard]] Result<UnpackedEntry> TryToUnpack(
      const std::string& name, std::uint64_t limit,
      const std::function<bool(std::string_view)>& write);

  InputBytes archive_;
  ArchiveDirectory directory_;
  std::unique_ptr<Library> library_;
};

// One entry of an archive by the same rules.
[[nodiscard]] Result<UnpackedEntry> UnpackEntry(const InputBytes& archive, const std::string& name,
                                                std::uint64_t limit,
                                                const std::function<bool(std::string_view)>& write);

}  // namespace quorvel
