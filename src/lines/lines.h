// The lines of some words: the places where they occur, and their text.
//
// A line is only a place. Its text is a view of the document. Functions that order or filter lines
// take such a list and return another.
#pragma once

#include <functional>
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

  // Calls `take` with each listed line of a word, in the order of their places, until it returns
  // false. Returns false if it did. In a search only the lines that match a keyword are listed.
  bool EachLineOf(EntryIndex entry, const std::function<bool(const Line&)>& take);

 private:
  LineSource source_;
  Quotation<Char> quotation_;
  ContextCutter<Char> cutter_;
  std::basic_string<Char> copies_;  // contexts from which line breaks were removed
};

extern template class LineReader<char>;
extern template class LineReader<char16_t>;

}  // namespace quorvel
