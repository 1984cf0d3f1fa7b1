#include "input/text_file.h"

#include <algorithm>

#include "input/utf8_repair.h"
#include "util/ansi.h"
#include "util/large_pages.h"

namespace quorvel {

std::string ReadTextFile(std::string_view bytes, const ReadOptions& options) {
  const std::string_view separator = options.join == LineJoin::blank ? " " : " / ";
  if (options.convertUtf8 && bytes.starts_with(BYTE_ORDER_MARK)) {
    bytes.remove_prefix(BYTE_ORDER_MARK.size());
  }
  std::string text;
  ReserveLarge(text, bytes.size() + bytes.size() / 16);
  std::string repaired;
  while (!bytes.empty()) {
    const std::size_t length = std::min(bytes.find('\r'), bytes.size());
    std::string_view line = bytes.substr(0, length);
    bytes.remove_prefix(length);
    bytes.remove_prefix(bytes.starts_with("\r\n") ? 2 : std::min<std::size_t>(1, bytes.size()));
    if (line.empty()) continue;
    if (options.convertUtf8) {
      repaired.assign(line);
      RepairUtf8(repaired);
      PlainPunctuation(repaired);
      line = repaired;
    }
    if (!text.empty()) text += separator;
    text += line;
  }
  return text;
}

}  // namespace quorvel
