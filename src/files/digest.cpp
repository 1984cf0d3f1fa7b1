#include "files/digest.h"

#include <functional>

#include "util/md5.h"

namespace quorvel {
namespace {

// The digest of a file; none when `goesOn`, which is asked now and then, says no.
FileDigest DigestWhile(const std::string& path, const std::function<bool()>& goesOn) {
  constexpr std::size_t CHUNK_LENGTH = 16384;
  if (path.empty()) return {"", -4, ""};
  if (path.size() == 2 && path[1] == ':') return {"", -3, "Drive, not file"};
  if (FolderExists(path)) return {"", -2, "Folder, not file"};
  if (FileLength(path) == 0) return {"", -1, "Zero-length file"};
  Md5Context context = Md5Init();
  bool whole = true;
  const int error = ReadFileInChunks(path, CHUNK_LENGTH, [&](std::string_view chunk) {
    Md5Update(context, chunk);
    return whole = goesOn();
  });
  if (error != 0 || !whole) return {"", -5, "File not readable"};
  return {HexOfBytes(Md5Final(context), false, false, false), 0, ""};
}

InputDigest InputDigestWhile(const std::string& path, const std::function<bool()>& goesOn) {
  const FileStamp stamp = StampOf(path);
  return {path, stamp, DigestWhile(path, goesOn).text};
}

std::function<bool()> Yielding(UserInterface& ui) {
  return [&ui] {
    ui.YieldNow();
    return true;
  };
}

}  // namespace

FileDigest ComputeFileDigest(const std::string& path, UserInterface& ui) {
  return DigestWhile(path, Yielding(ui));
}

InputDigest ComputeInputDigest(const std::string& path, UserInterface& ui) {
  return InputDigestWhile(path, Yielding(ui));
}

bool IsDigestOf(const InputDigest& digest, const std::string& path) {
  return !digest.text.empty() && digest.path == path && digest.stamp == StampOf(path);
}

DigestUnderWay::DigestUnderWay(const std::string& path)
    : digest_(std::async(
          [this, path] { return InputDigestWhile(path, [this] { return wanted_.load(); }); })) {}

}  // namespace quorvel
