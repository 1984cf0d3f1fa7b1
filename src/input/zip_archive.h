// One entry out of a zip archive.
//
// All that the program wants of a zip library stands behind this one function, so
// that the library can be exchanged. The name of the entry comes from the caller,
// never from the archive: no archive decides where something is written.
#pragma once

#include <cstdint>
#include <string>

namespace quorvel {

enum class UnpackOutcome {
  done,
  failed,      // no archive, no such entry, encrypted, damaged or of another checksum
  tooLarge,    // longer than the limit; nothing of it is kept
  unreadable,  // the system did not give the bytes of the archive; nothing of it is kept
  unwritable   // the destination cannot take it; nothing of it is kept
};

// Unpacks the entry `name`, whose folders end in "/", with its folder path below
// `destination`, an existing folder. Stops as soon as the entry turns out to be
// longer than `limit` bytes, whatever the archive says of its length. Where it `failed`
// the file holds the bytes that came before the fault; there is no file when the entry
// could not even be opened.
[[nodiscard]] UnpackOutcome UnpackEntry(const std::string& archive, const std::string& name,
                                        const std::string& destination, std::uint64_t limit);

}  // namespace quorvel
