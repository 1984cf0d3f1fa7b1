#include "lines/line_text.h"

#include <algorithm>

#include "util/ansi.h"

namespace quorvel {
namespace {

// As wide as a terminal shows it, with one column for each character; marks that stand on another
// one are rare enough.
template <typename Char>
std::size_t WidthOf(std::basic_string_view<Char> text) {
  return static_cast<std::size_t>(
      std::ranges::count_if(text, [](Char ch) { return !IsLowSurrogate(ch); }));
}

template <typename Char>
std::size_t WidestLeft(std::span<const LineGroup> lines, LineReader<Char>& reader) {
  std::size_t widest = 0;
  for (const LineGroup& group : lines) {
    widest = std::max(widest, WidthOf(reader.Read(group.first).left));
  }
  return widest;
}

}  // namespace

void ComposeLineText(std::span<const LineGroup> lines, const LineSource& source, LineForm form,
                     bool withTimes, const PieceSink& take, Progress& progress) {
  const bool isAligned = form == LineForm::aligned;
  WithQuotation(*source.words.document, [&](const auto& quotation) {
    LineReader reader(source, quotation);
    const std::size_t widest = isAligned ? WidestLeft(lines, reader) : 0;
    std::string bytes;
    for (const LineGroup& group : lines) {
      const auto text = reader.Read(group.first);
      bytes.clear();
      if (isAligned) bytes.append(widest - WidthOf(text.left), ' ');
      for (const auto part : {text.left, text.match, text.right}) {
        quotation.AppendUtf8(bytes, part);
        if (!isAligned) bytes += '\t';
      }
      if (!isAligned) bytes.pop_back();
      if (withTimes) {
        bytes += (isAligned ? " (x" : "\t") + std::to_string(group.count) + (isAligned ? ")" : "");
      }
      if (!take(bytes += '\n')) return;
      progress.Yield();
      if (progress.StopRequested()) return;
    }
  });
}

}  // namespace quorvel
