// The lines of some words: the places where they occur, each to be read with what stands around it.
//
// A line is a place and nothing more; its text is a view of the document. What orders or filters
// lines takes such a list and gives another.
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
  std::int32_t entry = 0;     // of the word table, 0-based
  std::int32_t position = 0;  // of the occurrence as the table has it, 1-based

  bool operator==(const Line&) const = default;
};

using Lines = std::vector<Line>;

// What lines are read from.
struct LineSource {
  Words words;
  std::shared_ptr<const KeywordLists> keywords;  // of a search; null otherwise
  ContextOptions context;
};

// The lines of the words of these entries, all different, in the order of their places; in a search
// those alone that a keyword wants. Nothing after a stop.
[[nodiscard]] std::optional<Lines> LinesOf(const LineSource& source,
                                           std::span<const std::int32_t> entries,
                                           Progress& progress);

// What a line shows, in the characters of a quotation.
template <typename Char>
struct LineText {
  TextSpan place;  // of the match in the document
  std::basic_string_view<Char> left;
  std::basic_string_view<Char> match;
  std::basic_string_view<Char> right;
};

// Reads lines of one document.
template <typename Char>
class LineReader {
 public:
  LineReader(LineSource source, const Quotation<Char>& quotation);

  // Valid until the next line is read.
  [[nodiscard]] LineText<Char> Read(const Line& line);

  // The whole context, as a listing cuts it; valid until the next line is read.
  [[nodiscard]] std::basic_string_view<Char> Context(const Line& line);

  // Has a line that will be read soon fetched from memory.
  void Prefetch(const Line& line) const { cutter_.Prefetch(line.position); }

 private:
  [[nodiscard]] std::u16string_view WordOf(const Line& line) const;

  LineSource source_;
  std::basic_string_view<Char> text_;
  ContextCutter<Char> cutter_;
  std::basic_string<Char> copies_;  // of what the views of a line could not view
};

extern template class LineReader<char>;
extern template class LineReader<char16_t>;

// Which lines of one word a search wants: all in a concordance.
class WantedLines {
 public:
  // The lists, those of a search or null, must outlive it.
  WantedLines(std::u16string_view word, const KeywordLists* lists, const Alphabet& alphabet);

  // Whether no context need be looked at.
  [[nodiscard]] bool All() const { return keywords_.empty(); }

  // Whether a line with this context is wanted.
  [[nodiscard]] bool Take(std::u16string_view context) const;

 private:
  const Alphabet& alphabet_;
  std::vector<const ExtraKeyword*> keywords_;  // one of which must want the context
};

// Calls `take` with each wanted line of a word, in the order of their places, while that gives
// true; false when it gave false.
template <typename Char, typename Take>
bool EachLineOf(std::int32_t entry, const LineSource& source, const Quotation<Char>& quotation,
                LineReader<Char>& reader, const Take& take) {
  constexpr std::size_t AHEAD = 8;
  const WordEntry& word = source.words.table->entries[static_cast<std::size_t>(entry)];
  const WantedLines wanted(word.word, source.keywords.get(), source.words.document->AlphabetOf());
  const std::vector<std::int32_t>& positions = word.positions;
  for (std::size_t k = 0; k < positions.size(); ++k) {
    if (k + AHEAD < positions.size()) reader.Prefetch({entry, positions[k + AHEAD]});
    const Line line = {entry, positions[k]};
    if (!wanted.All() && !wanted.Take(quotation.InCodeUnits(reader.Context(line)))) continue;
    if (!take(line)) return false;
  }
  return true;
}

}  // namespace quorvel
