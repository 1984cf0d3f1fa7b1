// Fewer lines: those with some words in their context, or equal ones once.
#pragma once

#include <string_view>

#include "lines/lines.h"

namespace quorvel {

// The lines whose context, the match included, has a word for each word of `wanted`, in their
// order. These are divided by blanks, may be patterns (lists/wildcard.h), and are folded as for
// sorting, as the context is (context_words.h). Nothing after a stop.
[[nodiscard]] std::optional<Lines> LinesWith(std::u16string_view wanted, const Lines& lines,
                                             const LineSource& source, Progress& progress);

// Some lines with equal contexts.
struct LineGroup {
  Line first;
  std::int32_t count = 1;
};

// Equal lines, to the character and with an equal match, as one: each where its first stands.
// Nothing after a stop.
[[nodiscard]] std::optional<std::vector<LineGroup>> EqualLinesOnce(const Lines& lines,
                                                                   const LineSource& source,
                                                                   Progress& progress);

}  // namespace quorvel
