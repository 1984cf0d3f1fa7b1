// Reads entries of a zip archive in memory.
//
// ArchiveReader hides the zip library, so that it can be replaced. Entry names are only looked up,
// and nothing is ever written to the path that a name gives.
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

// True when an input begins like a zip archive.
[[nodiscard]] bool BeginsLikeArchive(const InputBytes& input);

struct UnpackedEntry {
  std::uint64_t length = 0;  // unpacked bytes
  bool isDamaged = false;    // not an archive, no such entry, encrypted, damaged or wrong checksum
};

// An archive from which several entries are read.
class ArchiveReader {
 public:
  explicit ArchiveReader(InputBytes archive);
  ~ArchiveReader();
  ArchiveReader(const ArchiveReader&) = delete;
  ArchiveReader& operator=(const ArchiveReader&) = delete;

  // Unpacks the entry `name`, whose folders end in "/", and passes its bytes in order to `write`
  // until that returns false. Faults: `bodyTooLarge` as soon as the entry is longer than `limit`
  // bytes, whatever length the archive reports; `temporaryFolderFull` when `write` returned false;
  // `libraryMissing`.
  [[nodiscard]] Result<UnpackedEntry> Unpack(const std::string& name, std::uint64_t limit,
                                             const std::function<bool(std::string_view)>& write);

 private:
  struct Library;  // the state of the zip library

  [[nodiscard]] Result<UnpackedEntry> TryToUnpack(
      const std::string& name, std::uint64_t limit,
      const std::function<bool(std::string_view)>& write);

  InputBytes archive_;
  ArchiveDirectory directory_;
  std::unique_ptr<Library> library_;
};

// Unpacks one entry of an archive, as ArchiveReader::Unpack does.
[[nodiscard]] Result<UnpackedEntry> UnpackEntry(const InputBytes& archive, const std::string& name,
                                                std::uint64_t limit,
                                                const std::function<bool(std::string_view)>& write);

}  // namespace quorvel
