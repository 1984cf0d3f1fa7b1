// The calls that differ between systems, for the other files of this folder alone.
//
// Paths are the file system's own bytes, UTF-8 on Windows. What fails leaves its number in `errno`.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

#include "util/fault.h"

namespace quorvel {

[[nodiscard]] std::filesystem::path ToPath(const std::string& path);
[[nodiscard]] std::string FromPath(const std::filesystem::path& path);

// The number that `errno` would have, whatever the system's own is.
[[nodiscard]] int NumberOf(const std::error_code& error);

// A fault of this kind at `path`, with the system's description of the number.
[[nodiscard]] Fault SystemFault(FaultKind kind, const std::string& path, int errorNumber);

// What a file is in the place of that can be read or written over, where only such a file will do.
[[nodiscard]] Fault NotAFile(FaultKind kind, const std::string& path);

// What is at `path`; on Windows a device too, wherever it is named.
[[nodiscard]] std::filesystem::file_status StatusOf(const std::filesystem::path& path,
                                                    std::error_code& error);

// What a path names in the end: itself or, where it is a link, what the last link of the chain
// names, be there a file or not.
[[nodiscard]] std::filesystem::path BehindLinks(std::filesystem::path path, std::error_code& error);

// Opens a file, for bytes as they are; -1 on failure. A new file that is `isPrivate` can be read
// by its owner alone.
[[nodiscard]] int OpenFile(const std::filesystem::path& path, int flags, bool isPrivate = false);

// Opens a file to read it; -1 on failure. Waits for nobody: not for the other end of a pipe, nor
// for a device.
[[nodiscard]] int OpenToRead(const std::filesystem::path& path);

// What is open.
struct OpenStatus {
  bool isOrdinary = false;  // no device, pipe, socket or folder
  std::int64_t length = 0;  // in bytes
};

// The status of an open file; nothing on failure.
[[nodiscard]] std::optional<OpenStatus> StatusOf(int handle);

// Reads up to `length` bytes, fewer only at the end of the file; -1 on failure.
[[nodiscard]] std::int64_t ReadBytes(int handle, char* into, std::size_t length);

// Writes all of the bytes; false on failure.
[[nodiscard]] bool WriteBytes(int handle, std::string_view bytes);

// Waits until what was written is on the disk; 0 on success.
[[nodiscard]] int SyncFile(int handle);

// Whether an existing file can be written and, while others may have it open, replaced.
[[nodiscard]] bool IsWritable(const std::filesystem::path& path);

// The number of why a file could not take the place of `target`.
[[nodiscard]] int RenamingFault(const std::error_code& error, const std::filesystem::path& target);

}  // namespace quorvel
