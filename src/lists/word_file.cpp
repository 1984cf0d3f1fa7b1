#include "lists/word_file.h"

#include <algorithm>
#include <cstdint>

#include "input/utf8_repair.h"
#include "unicode/decoding.h"
#include "util/normalization.h"
#include "util/utf8.h"

namespace quorvel {
namespace {

std::string_view TrimControlCharacters(std::string_view line) {
  const auto isBlank = [](char ch) { return static_cast<std::uint8_t>(ch) <= 32; };
  while (!line.empty() && isBlank(line.front())) line.remove_prefix(1);
  while (!line.empty() && isBlank(line.back())) line.remove_suffix(1);
  return line;
}

// True when a trimmed line belongs to a comment. `inBlock` says whether a comment of several lines
// is open, and is false before the first line.
bool IsComment(std::string_view line, bool& inBlock) {
  if (line.ends_with("*/")) {
    inBlock = false;
    return true;
  }
  if (line.starts_with("/*")) inBlock = true;
  return inBlock;
}

}  // namespace

Result<std::vector<std::u16string>> WordsOfFileBytes(std::string_view bytes,
                                                     const Alphabet& alphabet, Progress& progress) {
  std::string unicode;
  if (alphabet.ReadingOf() == Reading::unicode) {
    unicode = Normalized(TextOfBytes(bytes).text);
    bytes = unicode;
  }
  if (bytes.starts_with(BYTE_ORDER_MARK)) bytes.remove_prefix(BYTE_ORDER_MARK.size());
  // Lines end in CR LF; trimming removes the LF. A file without any CR has lines that end in LF. As
  // a single line it would hold no usable word.
  const char lineEnd = bytes.find('\r') == std::string_view::npos ? '\n' : '\r';
  std::vector<std::u16string> words;
  bool inComment = false;
  std::string repaired;
  while (!bytes.empty()) {
    progress.Yield();
    if (progress.StopRequested()) return Fault{FaultKind::stopped, {}, {}};
    const std::size_t length = std::min(bytes.find(lineEnd), bytes.size());
    const std::string_view line = TrimControlCharacters(bytes.substr(0, length));
    bytes.remove_prefix(std::min(length + 1, bytes.size()));
    if (IsComment(line, inComment)) continue;
    repaired = line;
    if (alphabet.ReadingOf() == Reading::windows1252) RepairUtf8(repaired);
    const std::u16string text = alphabet.Decode(repaired);
    for (const std::u16string_view word : SplitAtBlanks(text)) words.emplace_back(word);
  }
  return words;
}

std::vector<std::u16string_view> SplitAtBlanks(std::u16string_view text) {
  std::vector<std::u16string_view> words;
  while (!text.empty()) {
    const std::size_t length = std::min(text.find(u' '), text.size());
    if (length > 0) words.push_back(text.substr(0, length));
    text.remove_prefix(std::min(length + 1, text.size()));
  }
  return words;
}

}  // namespace quorvel
