#include "output/digest.h"

#include "input/file_system.h"
#include "util/md5.h"

namespace quorvel {

FileDigest ComputeFileDigest(const std::string& path, UserInterface& ui) {
  constexpr std::size_t CHUNK_LENGTH = 16384;
  if (path.empty()) return {"", -4, ""};
  if (path.size() == 2 && path[1] == ':') return {"", -3, "Drive, not file"};
  if (FolderExists(path)) return {"", -2, "Folder, not file"};
  if (FileLength(path) == 0) return {"", -1, "Zero-length file"};
  Md5Context context = Md5Init();
  const bool whole = ReadFileInChunks(path, CHUNK_LENGTH, [&context, &ui](std::string_view chunk) {
    Md5Update(context, chunk);
    ui.YieldNow();
  });
  if (!whole) return {"", -5, "File not readable"};
  return {HexOfBytes(Md5Final(context), false, false, false), 0, ""};
}

}  // namespace quorvel
