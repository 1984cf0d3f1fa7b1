#include "input/zip_archive.h"

#include <array>
#include <memory>
#include <new>
#include <optional>
#include <utility>

#include "input/zip_library.h"

namespace quorvel {
namespace {

constexpr std::size_t BLOCK_LENGTH = 65536;
constexpr std::string_view LOCAL_RECORD = "PK\x03\x04";

struct CloseArchive {
  decltype(ZipLibrary::discard) discard = nullptr;
  void operator()(zip_t* archive) const { discard(archive); }
};
struct CloseEntry {
  decltype(ZipLibrary::closeEntry) close = nullptr;
  void operator()(zip_file_t* entry) const { close(entry); }
};
using Archive = std::unique_ptr<zip_t, CloseArchive>;
using Entry = std::unique_ptr<zip_file_t, CloseEntry>;

bool IsLackOfMemory(const ZipLibrary& zip, const zip_error_t& error) {
  constexpr int ZLIB_MEMORY_ERROR = -4;
  const int code = zip.errorCodeZip(&error);
  return code == ZIP_ER_MEMORY ||
         (code == ZIP_ER_ZLIB && zip.errorCodeSystem(&error) == ZLIB_MEMORY_ERROR);
}

zip_buffer_fragment_t FragmentOf(std::string_view bytes) {
  // The library does not write to the buffer.
  auto* const data = const_cast<char*>(bytes.data());           // NOLINT(*-const-cast)
  return {reinterpret_cast<zip_uint8_t*>(data), bytes.size()};  // NOLINT(*-reinterpret-cast)
}

// Opens an archive in memory. Returns null when it is not a zip archive.
Archive OpenArchive(const ZipLibrary& zip, const ArchiveParts& parts) {
  zip_error_t error;
  zip.errorInit(&error);
  const std::array<zip_buffer_fragment_t, 2> fragments = {FragmentOf(parts.entries),
                                                          FragmentOf(parts.directory)};
  zip_source_t* const source =
      zip.createSource(fragments.data(), parts.directory.empty() ? 1 : 2, 0, &error);
  Archive archive(nullptr, {zip.discard});
  if (source != nullptr) {
    archive.reset(zip.openFromSource(source, ZIP_RDONLY, &error));
    if (!archive) zip.freeSource(source);
  }
  const bool lacksMemory = !archive && IsLackOfMemory(zip, error);
  zip.errorFini(&error);
  if (lacksMemory) throw std::bad_alloc();
  return archive;
}

// Returns null when the entry does not exist or cannot be opened. Only the two compression methods
// that documents use are accepted; other methods could require any amount of memory.
Entry OpenEntry(const ZipLibrary& zip, zip_t* archive, const std::string& name,
                zip_stat_t& status) {
  zip.initStat(&status);
  if (zip.stat(archive, name.c_str(), 0, &status) != 0) return {};
  if (status.comp_method != ZIP_CM_STORE && status.comp_method != ZIP_CM_DEFLATE) return {};
  return Entry(zip.openIndex(archive, status.index, 0), {zip.closeEntry});
}

// The outcome of a failure after `length` bytes. The archive is in memory, so every failure except
// lack of memory means that it is damaged.
UnpackedEntry OutcomeOf(const ZipLibrary& zip, const zip_error_t& error, std::uint64_t length) {
  if (IsLackOfMemory(zip, error)) throw std::bad_alloc();
  return {length, true};
}

// True when the local record before the data of an entry, unlike the archive's directory, reports a
// size that is not zero. In that record the name follows the numbers.
bool HasBytesByItsRecord(std::string_view archive, const std::string& name) {
  constexpr std::size_t LENGTH = 30;
  constexpr std::size_t SIZES_AT = 18;
  constexpr std::size_t SIZES_LENGTH = 8;
  constexpr std::size_t NAME_LENGTH_AT = 26;
  for (std::size_t place = archive.find(name); place != std::string_view::npos;
       place = archive.find(name, place + 1)) {
    if (place < LENGTH) continue;
    const std::string_view record = archive.substr(place - LENGTH, LENGTH);
    const auto nameLength = static_cast<std::uint8_t>(record[NAME_LENGTH_AT]);
    if (!record.starts_with(LOCAL_RECORD) || nameLength != name.size()) continue;
    const std::string_view sizes = record.substr(SIZES_AT, SIZES_LENGTH);
    return sizes.find_first_not_of('\0') != std::string_view::npos;
  }
  return false;
}

// True when the directory wrongly reports an empty entry. The library trusts it and would neither
// unpack the entry nor verify its checksum.
bool IsEmptyByMistake(const zip_stat_t& status, std::string_view archive, const std::string& name) {
  if (status.comp_size != 0) return false;
  return status.size != 0 || status.crc != 0 || HasBytesByItsRecord(archive, name);
}

// Passes all bytes of an open entry to `write`. The library reports a wrong checksum or length at
// the end.
Result<UnpackedEntry> ReadEntry(const ZipLibrary& zip, zip_file_t* entry, const std::string& path,
                                std::uint64_t limit,
                                const std::function<bool(std::string_view)>& write) {
  // On the heap, because the user may have set a small stack.
  const auto block = std::make_unique_for_overwrite<char[]>(BLOCK_LENGTH);
  std::uint64_t length = 0;
  while (true) {
    const zip_int64_t got = zip.read(entry, block.get(), BLOCK_LENGTH);
    if (got == 0) return UnpackedEntry{length, false};
    if (got < 0) return OutcomeOf(zip, *zip.fileGetError(entry), length);
    length += static_cast<std::uint64_t>(got);
    if (length > limit) return Fault{FaultKind::bodyTooLarge, path, {}};
    if (!write(std::string_view(block.get(), static_cast<std::size_t>(got)))) {
      return Fault{FaultKind::temporaryFolderFull, path, {}};
    }
  }
}

}  // namespace

bool BeginsLikeArchive(const InputBytes& input) {
  constexpr std::size_t FEWEST_BYTES = 10;
  return input.View().size() >= FEWEST_BYTES && input.View().starts_with(LOCAL_RECORD);
}

// An archive with a short directory is opened once. With a long directory it is opened again for
// each entry.
struct ArchiveReader::Library {
  ZipLibrary zip;      // loaded when the archive is opened
  ArchiveParts parts;  // the open archive refers to these bytes
  Archive opened;
  bool wasOpenedAgain = false;
};

ArchiveReader::ArchiveReader(InputBytes archive)
    : archive_(std::move(archive)),
      directory_(archive_.View()),
      library_(std::make_unique<Library>()) {}

ArchiveReader::~ArchiveReader() = default;

Result<UnpackedEntry> ArchiveReader::TryToUnpack(
    const std::string& name, std::uint64_t limit,
    const std::function<bool(std::string_view)>& write) {
  const ZipLibrary& zip = library_->zip;
  if (!library_->opened || directory_.IsLong()) {
    const Result<ZipLibrary> loaded = LoadZipLibrary(archive_.Path());
    if (!loaded) return loaded.Error();
    library_->zip = *loaded;
    std::optional<ArchiveParts> parts = directory_.PartsFor(name);
    if (!parts) return UnpackedEntry{0, true};
    library_->opened.reset();
    library_->parts = *std::move(parts);
    library_->opened = OpenArchive(zip, library_->parts);
  }
  zip_t* const archive = library_->opened.get();
  if (archive == nullptr) return UnpackedEntry{0, true};
  zip_stat_t status;
  const Entry entry = OpenEntry(zip, archive, name, status);
  if (!entry) return OutcomeOf(zip, *zip.getError(archive), 0);
  if (IsEmptyByMistake(status, archive_.View(), name)) return UnpackedEntry{0, true};
  return ReadEntry(zip, entry.get(), archive_.Path(), limit, write);
}

// Without enough memory for the names in an archive, the library behaves as if there were none. So
// at the first missing entry the archive is opened again.
Result<UnpackedEntry> ArchiveReader::Unpack(const std::string& name, std::uint64_t limit,
                                            const std::function<bool(std::string_view)>& write) {
  Result<UnpackedEntry> entry = TryToUnpack(name, limit, write);
  const bool isMissing = entry && entry->isDamaged && entry->length == 0;
  if (!isMissing || std::exchange(library_->wasOpenedAgain, true)) return entry;
  library_->opened.reset();
  return TryToUnpack(name, limit, write);
}

Result<UnpackedEntry> UnpackEntry(const InputBytes& archive, const std::string& name,
                                  std::uint64_t limit,
                                  const std::function<bool(std::string_view)>& write) {
  return ArchiveReader(archive).Unpack(name, limit, write);
}

}  // namespace quorvel
