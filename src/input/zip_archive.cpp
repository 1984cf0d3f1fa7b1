#include "input/zip_archive.h"

#include <zip.h>

#include <array>
#include <memory>

namespace quorvel {
namespace {

constexpr std::size_t BLOCK_LENGTH = 65536;

struct CloseArchive {
  void operator()(zip_t* archive) const { zip_discard(archive); }
};
struct CloseEntry {
  void operator()(zip_file_t* entry) const { zip_fclose(entry); }
};
using Archive = std::unique_ptr<zip_t, CloseArchive>;
using Entry = std::unique_ptr<zip_file_t, CloseEntry>;

// Reads the archive where it lies. No archive, and the library's number of why, when that fails.
Archive OpenArchive(std::string_view bytes, int& zipError) {
  zip_error_t error;
  zip_error_init(&error);
  zip_source_t* const source = zip_source_buffer_create(bytes.data(), bytes.size(), 0, &error);
  Archive archive;
  if (source != nullptr) {
    archive.reset(zip_open_from_source(source, ZIP_RDONLY, &error));
    if (!archive) zip_source_free(source);
  }
  zipError = zip_error_code_zip(&error);
  zip_error_fini(&error);
  return archive;
}

// No entry when it is not there or cannot be opened. The two methods are those
// that documents use; others the library may know could ask for any amount of memory.
Entry OpenEntry(zip_t* archive, const std::string& name) {
  zip_stat_t status;
  zip_stat_init(&status);
  if (zip_stat(archive, name.c_str(), 0, &status) != 0) return nullptr;
  constexpr zip_uint64_t NEEDED = ZIP_STAT_INDEX | ZIP_STAT_COMP_METHOD;
  if ((status.valid & NEEDED) != NEEDED) return nullptr;
  if (status.comp_method != ZIP_CM_STORE && status.comp_method != ZIP_CM_DEFLATE) return nullptr;
  return Entry(zip_fopen_index(archive, status.index, 0));
}

// What a failure after `length` bytes comes to: of bytes in memory only the memory can fail, all
// else is damage.
Result<UnpackedEntry> OutcomeOf(int zipError, const std::string& path, std::uint64_t length) {
  if (zipError == ZIP_ER_MEMORY) return Fault{FaultKind::notRead, path, {}};
  return UnpackedEntry{length, true};
}

}  // namespace

// The library reports a wrong checksum or length once all bytes are out.
Result<UnpackedEntry> UnpackEntry(const InputBytes& archive, const std::string& name,
                                  std::uint64_t limit,
                                  const std::function<bool(std::string_view)>& write) {
  int zipError = 0;
  const Archive opened = OpenArchive(archive.View(), zipError);
  if (!opened) return OutcomeOf(zipError, archive.Path(), 0);
  const Entry entry = OpenEntry(opened.get(), name);
  if (!entry) return OutcomeOf(zip_error_code_zip(zip_get_error(opened.get())), archive.Path(), 0);
  std::array<char, BLOCK_LENGTH> block;
  std::uint64_t length = 0;
  while (true) {
    const zip_int64_t got = zip_fread(entry.get(), block.data(), block.size());
    if (got == 0) return UnpackedEntry{length, false};
    if (got < 0) {
      const int why = zip_error_code_zip(zip_file_get_error(entry.get()));
      return OutcomeOf(why, archive.Path(), length);
    }
    length += static_cast<std::uint64_t>(got);
    if (length > limit) return Fault{FaultKind::bodyTooLarge, archive.Path(), {}};
    if (!write(std::string_view(block.data(), static_cast<std::size_t>(got)))) {
      return Fault{FaultKind::temporaryFolderFull, archive.Path(), {}};
    }
  }
}

}  // namespace quorvel
