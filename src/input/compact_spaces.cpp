#include "input/compact_spaces.h"

#include <cstdint>

namespace quorvel {

void CompactSpaces(std::string& text) {
  char* data = text.data();
  const std::size_t length = text.size();
  std::size_t out = 0;
  unsigned inRun = 0;
  // Without a branch: where words end cannot be foretold.
  for (std::size_t i = 0; i < length; ++i) {
    const unsigned blank = static_cast<std::uint8_t>(data[i]) <= 32 ? 1 : 0;
    data[out] = blank != 0 ? ' ' : data[i];
    out += 1 - (blank & inRun);
    inRun = blank;
  }
  text.resize(out);
}

}  // namespace quorvel
