#include "input/zip_archive.h"

#include <zip.h>

#include <array>
#include <memory>
#include <string_view>

#include "files/file_system.h"

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

// A damaged archive is another matter than a disk, or a memory, that failed to hand out its bytes.
UnpackOutcome OutcomeOf(int zipError) {
  switch (zipError) {
    case ZIP_ER_OPEN:
    case ZIP_ER_READ:
    case ZIP_ER_SEEK:
    case ZIP_ER_TELL:
    case ZIP_ER_MEMORY:
      return UnpackOutcome::unreadable;
    default:
      return UnpackOutcome::failed;
  }
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

bool MakeFoldersOf(const std::string& name, const std::string& destination) {
  for (std::size_t end = name.find('/'); end != std::string::npos; end = name.find('/', end + 1)) {
    if (MakeFolder(JoinPath(destination, name.substr(0, end))) == FolderMaking::failed) {
      return false;
    }
  }
  return true;
}

// The library reports a wrong checksum or length once all bytes are out.
UnpackOutcome CopyEntry(zip_file_t* entry, std::uint64_t limit, OutputFile& file) {
  std::array<char, BLOCK_LENGTH> block;
  std::uint64_t length = 0;
  while (true) {
    const zip_int64_t got = zip_fread(entry, block.data(), block.size());
    if (got == 0) return UnpackOutcome::done;
    if (got < 0) return OutcomeOf(zip_error_code_zip(zip_file_get_error(entry)));
    length += static_cast<std::uint64_t>(got);
    if (length > limit) return UnpackOutcome::tooLarge;
    if (!file.Write(std::string_view(block.data(), static_cast<std::size_t>(got)))) {
      return UnpackOutcome::unwritable;
    }
  }
}

}  // namespace

UnpackOutcome UnpackEntry(const std::string& archive, const std::string& name,
                          const std::string& destination, std::uint64_t limit) {
  int zipError = 0;
  const Archive opened(zip_open(archive.c_str(), ZIP_RDONLY, &zipError));
  if (!opened) return OutcomeOf(zipError);
  const Entry entry = OpenEntry(opened.get(), name);
  if (!entry) return OutcomeOf(zip_error_code_zip(zip_get_error(opened.get())));
  if (!MakeFoldersOf(name, destination)) return UnpackOutcome::unwritable;
  OutputFile file(JoinPath(destination, name));
  const UnpackOutcome outcome = CopyEntry(entry.get(), limit, file);
  if (outcome == UnpackOutcome::tooLarge || outcome == UnpackOutcome::unreadable) return outcome;
  return file.CommitPassing() ? outcome : UnpackOutcome::unwritable;
}

}  // namespace quorvel
