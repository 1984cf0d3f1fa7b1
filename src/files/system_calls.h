// The calls that differ between systems, for the other files of this folder alone.
//
// Paths are the file system's own bytes, UTF-8 on Windows. What fails leaves its number in `errno`.
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <system_error>

#include "util/fault.h"

namespace quorvel {

// One read or write call moves at most this many bytes: a size every platform takes.
inline constexpr std::size_t LARGEST_TRANSFER = std::size_t{1} << 30U;

[[nodiscard]] std::filesystem::path ToPath(const std::string& path);
[[nodiscard]] std::string FromPath(const std::filesystem::path& path);

// The number that `errno` would have, whatever the system's own is.
[[nodiscard]] int NumberOf(const std::error_code& error);

// A fault of this kind at `path`, with the system's description of the number.
[[nodiscard]] Fault SystemFault(FaultKind kind, const std::string& path, int errorNumber);

// What is at `path`; on Windows a device too, wherever it is named.
[[nodiscard]] std::filesystem::file_status StatusOf(const std::filesystem::path& path,
                                                    std::error_code& error);

// Opens a file, for bytes as they are; -1 on failure. A new file that is `isPrivate` can be read
// by its owner alone.
[[nodiscard]] int OpenFile(const std::filesystem::path& path, int flags, bool isPrivate = false);

// Waits until what was written is on the disk; 0 on success.
[[nodiscard]] int SyncFile(int handle);

// Whether an existing file can be written and, while others may have it open, replaced.
[[nodiscard]] bool IsWritable(const std::filesystem::path& path);

// The number of why a file could not take the place of `target`.
[[nodiscard]] int RenamingFault(const std::error_code& error, const std::filesystem::path& target);

// Gives an open file the owner and the mode of the one whose place it is to take, as far as the
// system has such and allows it.
void TakeAttributesOf(int handle, const std::filesystem::path& target);

}  // namespace quorvel
