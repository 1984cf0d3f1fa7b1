#include "input/text_file.h"

#include <algorithm>

#include "input/utf8_repair.h"
#include "util/large_pages.h"
#include "util/utf8.h"

namespace quorvel {
namespace {

// Splits a text into lines.
class Lines {
 public:
  Lines(std::string_view bytes, bool lineFeedEnds)
      : rest_(bytes), feed_(lineFeedEnds ? 0 : std::string_view::npos) {}

  [[nodiscard]] bool AtEnd() const { return rest_.empty(); }

  // The next line without its line end.
  std::string_view Next() {
    const std::size_t length = std::min({Find('\r', return_), Find('\n', feed_), rest_.size()});
    const std::string_view line = rest_.substr(0, length);
    const std::string_view end = rest_.substr(length, 2);
    const std::size_t taken = length + (end == "\r\n" ? 2 : std::min<std::size_t>(1, end.size()));
    rest_.remove_prefix(taken);
    gone_ += taken;
    return line;
  }

 private:
  // The index of `ch` in the rest. `known` caches its last index in the whole text, so that nothing
  // is searched twice.
  std::size_t Find(char ch, std::size_t& known) const {
    if (known < gone_ || known == 0) {
      const std::size_t found = rest_.find(ch);
      known = found == std::string_view::npos ? found : gone_ + found;
    }
    return known == std::string_view::npos ? known : known - gone_;
  }

  std::string_view rest_;
  std::size_t gone_ = 0;  // bytes before the rest
  std::size_t return_ = 0;
  std::size_t feed_;
};

}  // namespace

std::string ReadTextFile(std::string_view bytes, const TextFileOptions& options) {
  const std::string_view separator = options.join == LineJoin::blank ? " " : " / ";
  if (options.convertUtf8 && bytes.starts_with(BYTE_ORDER_MARK)) {
    bytes.remove_prefix(BYTE_ORDER_MARK.size());
  }
  std::string text;
  ReserveLarge(text, bytes.size() + bytes.size() / 16);
  std::string repaired;
  Lines lines(bytes, options.lineFeedEnds);
  while (!lines.AtEnd()) {
    std::string_view line = lines.Next();
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
