#include "input/text_file.h"

#include <algorithm>
#include <utility>

#include "input/file_system.h"
#include "input/utf8_repair.h"
#include "util/ansi.h"
#include "util/large_pages.h"

namespace quorvel {
namespace {

std::string_view SeparatorOf(LineJoin join) {
  if (join == LineJoin::blank) return " ";
  return join == LineJoin::slash ? " / " : "\r\n";
}

// Takes the first line, with its end, off the front of `bytes`.
std::string_view TakeLine(std::string_view& bytes) {
  const std::size_t length = std::min(bytes.find('\r'), bytes.size());
  const std::string_view line = bytes.substr(0, length);
  const bool withLineFeed = length + 1 < bytes.size() && bytes[length + 1] == '\n';
  bytes.remove_prefix(std::min(bytes.size(), length + (withLineFeed ? 2 : 1)));
  return line;
}

}  // namespace

TextFile ReadTextFile(const std::string& path, const ReadOptions& options) {
  FileRead file = ReadFileBytes(path);
  if (file.error.empty()) return JoinLines(file.bytes, options);
  TextFile failed;
  failed.errorText = std::move(file.error);
  failed.errorNumber = file.errorNumber;
  return failed;
}

TextFile JoinLines(std::string_view bytes, const ReadOptions& options) {
  const std::string_view separator = SeparatorOf(options.join);
  if (options.convertUtf8 && bytes.starts_with(BYTE_ORDER_MARK)) {
    bytes.remove_prefix(BYTE_ORDER_MARK.size());
  }
  TextFile result;
  ReserveLarge(result.text, bytes.size() + bytes.size() / 16);
  std::string repaired;
  while (!bytes.empty()) {
    std::string_view line = TakeLine(bytes);
    if (options.skipEmptyLines && line.empty()) continue;
    ++result.linesKept;
    if (options.convertUtf8) {
      repaired.assign(line);
      RepairUtf8(repaired);
      if (options.cleanUp) PlainPunctuation(repaired);
      line = repaired;
    }
    if (!result.text.empty()) result.text += separator;
    result.text += line;
    if (options.maxLines > 0 && result.linesKept == options.maxLines) break;
  }
  return result;
}

}  // namespace quorvel
