// The lines of some words: the places where they occur, and their text.
//
// A line is only a place. Its text is a view of the document. Functions that order or filter lines
// take such a list and return another.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "engine/words.h"
#include "lines/context_window.h"
#include "lines/quotation.h"
#include "lists/keywords.h"
#include "util/progress.h"

namespace quorvel {

struct Line {
  EntryIndex entry{};
  Position position{};  // as recorded in the word table

  bool operator==(const Line&) const = default;
};

using Lines = std::vector<Line>;

// The values that lines are read from.
struct LineSource {
  Words words;
  std::shared_ptr<const KeywordLists> keywords;  // of a search, otherwise null
  ContextOptions context;
};

// The lines of these entries, which are all different, in the order of their places. In a search
// only the lines that match a keyword. Returns nothing after a stop.
[[nodiscard]] std::optional<Lines> LinesOf(const LineSource& source,
                                           std::span<const EntryIndex> entries, Progress& progress);

// The text of a line, in the characters of a quotation.
template <typename Char>
struct LineText {
  TextSpan place;  // of the match in the document, 0-based
  std::basic_string_view<Char> left;
  std::basic_string_view<Char> match;
  std::basic_string_view<Char> right;
};

// Reads lines of one document.
template <typename Char>
class LineReader {
 public:
  LineReader(LineSource source, const Quotation<Char>& quotation);

  // The text of a line. It is valid until the next line is read.
  [[nodiscard]] LineText<Char> Read(const Line& line);

  // The whole context, as in a listing. It is valid until the next line is read.
  [[nodiscard]] std::basic_string_view<Char> Context(const Line& line);

  // Prefetches the text of a line that will be read soon.
  void Prefetch(const Line& line) const { cutter_.Prefetch(line.position); }

 private:
  [[nodiscard]] std::u16string_view WordOf(const Line& line) const;

  LineSource source_;
  std::basic_string_view<Char> text_;
  ContextCutter<Char> cutter_;
  std::basic_string<Char> copies_;  // contexts from which line breaks were removed
};

extern template class LineReader<char>;
extern template class LineReader<char16_t>;

// Decides which lines of one word are listed: all in a concordance, in a search those that match a
// keyword.
class WantedLines {
 public:
  // `lists` are the keywords of a search, or null. They must outlive it.
  WantedLines(std::u16string_view word, const KeywordLists* lists, const Alphabet& alphabet);

  // True if all lines are listed, so that no context need be read.
  [[nodiscard]] bool All() const { return keywords_.empty(); }

  // True if a line with this context is listed.
  [[nodiscard]] bool Take(std::u16string_view context) const;

 private:
  const Alphabet& alphabet_;
  std::vector<const ExtraKeyword*> keywords_;  // at least one of them must match the context
};

// Calls `take` with each listed line of a word, in the order of their places, until it returns
// false. Returns false if it did.
template <typename Char, typename Take>
bool EachLineOf(EntryIndex entry, const LineSource& source, const Quotation<Char>& quotation,
                LineReader<Char>& reader, const Take& take) {
  constexpr std::size_t AHEAD = 8;
  const WordEntry& word = source.words.table->At(entry);
  const WantedLines wanted(word.word, source.keywords.get(), source.words.document->AlphabetOf());
  const std::vector<Position>& positions = word.positions;
  for (std::size_t k = 0; k < positions.size(); ++k) {
    if (k + AHEAD < positions.size()) reader.Prefetch({entry, positions[k + AHEAD]});
    const Line line = {entry, positions[k]};
    if (!wanted.All() && !wanted.Take(quotation.InCodeUnits(reader.Context(line)))) continue;
    if (!take(line)) return false;
  }
  return true;
}

}  // namespace quorvel
