#include "files/digest.h"

#include <algorithm>
#include <functional>
#include <utility>

#include "util/background.h"
#include "util/md5.h"

namespace quorvel {
namespace {

// Returns nothing when `goesOn`, which is called from time to time, returns false.
std::string DigestWhile(std::string_view bytes, const std::function<bool()>& goesOn) {
  constexpr std::size_t CHUNK_LENGTH = 16384;
  if (bytes.empty()) return {};
  Md5Context context = Md5Init();
  for (; !bytes.empty(); bytes.remove_prefix(std::min(CHUNK_LENGTH, bytes.size()))) {
    Md5Update(context, bytes.substr(0, CHUNK_LENGTH));
    if (!goesOn()) return {};
  }
  return HexOfBytes(Md5Final(context), false, false, false);
}

}  // namespace

std::string DigestOf(std::string_view bytes) {
  return DigestWhile(bytes, [] { return true; });
}

bool IsDigest(std::string_view text) {
  constexpr std::size_t DIGITS = 32;
  return text.size() == DIGITS &&
         text.find_first_not_of("0123456789ABCDEF") == std::string_view::npos;
}

FileDigest ComputeFileDigest(const std::string& path) {
  if (path.empty()) return {"", -4, ""};
  if (path.size() == 2 && path[1] == ':') return {"", -3, "Drive, not file"};
  if (FolderExists(path)) return {"", -2, "Folder, not file"};
  SilentProgress nobody;
  const Result<InputBytes> input = ReadInput(path, nobody);
  if (!input) return {"", -5, "File not readable"};
  if (input->View().empty()) return {"", -1, "Zero-length file"};
  return {DigestOf(input->View()), 0, ""};
}

InputDigest::InputDigest(InputBytes input)
    : digest_(RunInBackground([this, input = std::move(input)]() mutable {
        const InputBytes bytes = std::exchange(input, {});
        return DigestWhile(bytes.View(), [this] { return wanted_.load(); });
      })) {}

bool InputDigest::IsReady(std::chrono::milliseconds patience) const {
  return digest_.wait_for(patience) != std::future_status::timeout;
}

}  // namespace quorvel
