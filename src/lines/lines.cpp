#include "lines/lines.h"

#include <algorithm>
#include <utility>

#include "lines/line_order.h"

namespace quorvel {

template <typename Char>
LineReader<Char>::LineReader(LineSource source, const Quotation<Char>& quotation)
    : source_(std::move(source)), text_(quotation.Text()), cutter_(text_, source_.context) {
  copies_.reserve(2 * cutter_.LongestContext(MAX_WORD_LENGTH));
}

template <typename Char>
std::u16string_view LineReader<Char>::WordOf(const Line& line) const {
  return source_.words.table->At(line.entry).word;
}

template <typename Char>
LineText<Char> LineReader<Char>::Read(const Line& line) {
  copies_.clear();
  const std::u16string_view word = WordOf(line);
  const TextSpan place =
      SpanOfOccurrence(source_.words.document->documentText, word, line.position);
  const ContextParts<Char> parts = cutter_.CutApart(line.position, word.size(), place, copies_);
  return {place, parts.left, text_.substr(place.begin, place.end - place.begin), parts.right};
}

template <typename Char>
std::basic_string_view<Char> LineReader<Char>::Context(const Line& line) {
  copies_.clear();
  return cutter_.Cut(line.position, WordOf(line).size(), copies_);
}

template class LineReader<char>;
template class LineReader<char16_t>;

WantedLines::WantedLines(std::u16string_view word, const KeywordLists* lists,
                         const Alphabet& alphabet)
    : alphabet_(alphabet) {
  if (lists == nullptr) return;
  const std::u16string lower = alphabet.ToLowerCase(word);
  if (BinarySearch(lists->fileKeywords, lower)) return;
  for (const std::size_t i : lists->extraKeywords.Matches(lower)) {
    keywords_.push_back(&lists->extraKeywords.Keywords()[i]);
  }
  const auto takesAll = [](const ExtraKeyword* keyword) { return !keyword->hasContextPattern; };
  if (std::any_of(keywords_.begin(), keywords_.end(), takesAll)) keywords_.clear();
}

bool WantedLines::Take(std::u16string_view context) const {
  return std::any_of(keywords_.begin(), keywords_.end(), [&](const ExtraKeyword* keyword) {
    return WantsContext(*keyword, context, alphabet_);
  });
}

std::optional<Lines> LinesOf(const LineSource& source, std::span<const EntryIndex> entries,
                             Progress& progress) {
  Lines lines;
  const auto add = [&](const Line& line) {
    progress.Yield();
    lines.push_back(line);
    return !progress.StopRequested();
  };
  if (source.keywords == nullptr) {
    // All lines are listed, so no context need be read.
    for (const EntryIndex entry : entries) {
      for (const Position position : source.words.table->At(entry).positions) {
        if (!add({entry, position})) return std::nullopt;
      }
    }
  } else {
    WithQuotation(*source.words.document, [&](const auto& quotation) {
      LineReader reader(source, quotation);
      for (const EntryIndex entry : entries) {
        if (!EachLineOf(entry, source, quotation, reader, add)) return;
      }
    });
  }
  if (entries.size() > 1 && !OrderLines(lines, source, {}, progress)) return std::nullopt;
  if (progress.StopRequested()) return std::nullopt;
  return lines;
}

}  // namespace quorvel
