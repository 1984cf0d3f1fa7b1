#include "lines/line_text.h"

#include <algorithm>

#include "util/utf8.h"

namespace quorvel {
namespace {

// The width in a terminal with one column for each character. Combining marks are rare, so they are
// counted too.
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

// Appends the line to UTF-8 bytes. In an aligned line the left context is as wide as `widest`.
template <typename Char>
void AppendLine(std::string& bytes, const LineText<Char>& text, const Quotation<Char>& quotation,
                LineForm form, std::size_t widest) {
  const std::string_view between = form == LineForm::aligned ? "" : "\t";
  if (form == LineForm::aligned) bytes.append(widest - WidthOf(text.left), ' ');
  quotation.AppendUtf8(bytes, text.left);
  bytes += between;
  quotation.AppendUtf8(bytes, text.match);
  bytes += between;
  quotation.AppendUtf8(bytes, text.right);
}

std::string TimesText(std::int32_t count, LineForm form) {
  const std::string number = std::to_string(count);
  return form == LineForm::aligned ? " (x" + number + ")" : "\t" + number;
}

}  // namespace

void ComposeLineText(std::span<const LineGroup> lines, const LineSource& source, LineForm form,
                     bool withTimes, const PieceSink& take, Progress& progress) {
  WithQuotation(*source.words.document, [&](const auto& quotation) {
    LineReader reader(source, quotation);
    const std::size_t widest = form == LineForm::aligned ? WidestLeft(lines, reader) : 0;
    std::string bytes;
    for (const LineGroup& group : lines) {
      bytes.clear();
      AppendLine(bytes, reader.Read(group.first), quotation, form, widest);
      if (withTimes) bytes += TimesText(group.count, form);
      if (!take(bytes += '\n')) return;
      progress.Yield();
      if (progress.StopRequested()) return;
    }
  });
}

}  // namespace quorvel
