#include "cli/standard_input.h"

#include <array>
#include <cerrno>
#include <cstddef>
#include <memory>

#include "cli/platform.h"
#include "files/file_system.h"

namespace quorvel {

Result<InputBytes> ReadStandardInput(const std::string& path, Progress& progress) {
  constexpr std::size_t BLOCK = 65536;
  const auto bytes = std::make_shared<std::string>();
  const auto block = std::make_unique<std::array<char, BLOCK>>();
  for (;;) {
    const bool isReady = HasInput();
    progress.YieldNow();
    if (progress.StopRequested()) return Fault{FaultKind::stopped, path, {}};
    if (!isReady) continue;
    const std::ptrdiff_t got = ReadSome(block->data(), block->size());
    if (got < 0) return Fault{FaultKind::notRead, path, SystemMessage(errno), errno};
    if (got == 0) break;
    bytes->append(block->data(), static_cast<std::size_t>(got));
    if (bytes->size() > LONGEST_INPUT) return Fault{FaultKind::tooLong, path, {}};
  }
  return InputBytes(path, {}, std::shared_ptr<const char[]>(bytes, bytes->data()), bytes->size());
}

}  // namespace quorvel
