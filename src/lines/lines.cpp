#include "lines/lines.h"

#include <algorithm>
#include <utility>

#include "lines/line_order.h"

namespace quorvel {
namespace {

// The keywords of a search of which one must match the context of a line of `word`. There are none
// if all lines of the word are listed.
std::vector<const ExtraKeyword*> ContextKeywordsOf(std::u16string_view word,
                                                   const KeywordLists* lists,
                                                   const Alphabet& alphabet) {
  if (lists == nullptr) return {};
  const std::u16string lower = alphabet.ToLowerCase(word);
  if (BinarySearch(lists->fileKeywords, lower)) return {};
  std::vector<const ExtraKeyword*> keywords;
  for (const std::size_t i : lists->extraKeywords.Matches(lower)) {
    const ExtraKeyword& keyword = lists->extraKeywords.Keywords()[i];
    if (!keyword.hasContextPattern) return {};
    keywords.push_back(&keyword);
  }
  return keywords;
}

}  // namespace

template <typename Char>
LineReader<Char>::LineReader(LineSource source, const Quotation<Char>& quotation)
    : source_(std::move(source)),
      quotation_(quotation),
      cutter_(quotation.Text(), source_.context) {
  copies_.reserve(2 * cutter_.LongestContext(MAX_WORD_LENGTH));
}

template <typename Char>
LineText<Char> LineReader<Char>::Read(const Line& line) {
  copies_.clear();
  const std::u16string_view word = source_.words.table->At(line.entry).word;
  const TextSpan place =
      SpanOfOccurrence(source_.words.document->documentText, word, line.position);
  const ContextParts<Char> parts = cutter_.CutApart(line.position, word.size(), place, copies_);
  return {place, parts.left, quotation_.Text().substr(place.begin, place.end - place.begin),
          parts.right};
}

template <typename Char>
bool LineReader<Char>::EachLineOf(EntryIndex entry, const std::function<bool(const Line&)>& take) {
  constexpr std::size_t AHEAD = 8;
  const WordEntry& word = source_.words.table->At(entry);
  const Alphabet& alphabet = source_.words.document->AlphabetOf();
  const auto keywords = ContextKeywordsOf(word.word, source_.keywords.get(), alphabet);
  const auto isListed = [&](Position position) {
    if (keywords.empty()) return true;
    copies_.clear();
    const auto context = quotation_.InCodeUnits(cutter_.Cut(position, word.word.size(), copies_));
    return std::ranges::any_of(keywords, [&](const ExtraKeyword* keyword) {
      return WantsContext(*keyword, context, alphabet);
    });
  };
  const std::vector<Position>& positions = word.positions;
  for (std::size_t k = 0; k < positions.size(); ++k) {
    if (k + AHEAD < positions.size()) cutter_.Prefetch(positions[k + AHEAD]);
    if (isListed(positions[k]) && !take({entry, positions[k]})) return false;
  }
  return true;
}

template class LineReader<char>;
template class LineReader<char16_t>;

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
        if (!reader.EachLineOf(entry, add)) return;
      }
    });
  }
  if (entries.size() > 1 && !OrderLines(lines, source, {}, progress)) return std::nullopt;
  if (progress.StopRequested()) return std::nullopt;
  return lines;
}

}  // namespace quorvel
