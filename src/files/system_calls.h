// System calls that differ between platforms. For use in this folder only.
//
// Paths are the file system's own bytes, UTF-8 on Windows. A function that fails sets `errno`.
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

// Convert between a path's bytes and the path type of the standard library.
[[nodiscard]] std::filesystem::path ToPath(const std::string& path);
[[nodiscard]] std::string FromPath(const std::filesystem::path& path);

// The `errno` value that corresponds to `error`.
[[nodiscard]] int NumberOf(const std::error_code& error);

// Returns a fault with the system's description of `errorNumber`.
[[nodiscard]] Fault SystemFault(FaultKind kind, const std::string& path, int errorNumber);

// Returns the fault for a device or a pipe where only an ordinary file is allowed.
[[nodiscard]] Fault NotAFile(FaultKind kind, const std::string& path);

// The status of the file at `path`. On Windows it also recognizes devices, in any folder.
[[nodiscard]] std::filesystem::file_status StatusOf(const std::filesystem::path& path,
                                                    std::error_code& error);

// Resolves links: returns the target of the last link of a chain, whether or not it exists, or
// `path` itself when it is not a link.
[[nodiscard]] std::filesystem::path ResolveLinks(std::filesystem::path path,
                                                 std::error_code& error);

// Opens a file in binary mode. Returns -1 on failure. A new file with `isPrivate` is readable only
// by its owner.
[[nodiscard]] int OpenFile(const std::filesystem::path& path, int flags, bool isPrivate = false);

// Opens a file for reading. Returns -1 on failure. Never blocks on a pipe or a device.
[[nodiscard]] int OpenToRead(const std::filesystem::path& path);

// The status of an open file.
struct OpenStatus {
  bool isOrdinary = false;  // not a device, pipe, socket or folder
  std::int64_t length = 0;  // in bytes
};

// Returns nothing on failure.
[[nodiscard]] std::optional<OpenStatus> StatusOf(int handle);

// Reads up to `length` bytes and returns their number, which is smaller only at the end of the
// file. Returns -1 on failure.
[[nodiscard]] std::int64_t ReadBytes(int handle, char* into, std::size_t length);

// Writes all of `bytes`. Returns false on failure.
[[nodiscard]] bool WriteBytes(int handle, std::string_view bytes);

// Waits until the written bytes are on the disk. Returns 0 on success.
[[nodiscard]] int SyncFile(int handle);

// True when an existing file can be written and, even if other programs have it open, replaced.
[[nodiscard]] bool IsWritable(const std::filesystem::path& path);

// The error number of a failed rename to `target`.
[[nodiscard]] int RenamingFault(const std::error_code& error, const std::filesystem::path& target);

}  // namespace quorvel
