// Reduces lines: keeps those with certain words in their context, or keeps equal lines once.
#pragma once

#include <string_view>

#include "lines/lines.h"

namespace quorvel {

// The lines whose context, including the match, has all words of `wanted`. Their order does not
// change. The words are separated by blanks and may be patterns (lists/wildcard.h). They and the
// context are folded for sorting (context_words.h). Returns nothing after a stop.
[[nodiscard]] std::optional<Lines> LinesWith(std::u16string_view wanted, const Lines& lines,
                                             const LineSource& source, Progress& progress);

// Lines with equal contexts.
struct LineGroup {
  Line first;
  std::int32_t count = 1;
};

// Groups lines whose contexts and matches are equal to the character. Each group is at the place of
// its first line. Returns nothing after a stop.
[[nodiscard]] std::optional<std::vector<LineGroup>> EqualLinesOnce(const Lines& lines,
                                                                   const LineSource& source,
                                                                   Progress& progress);

}  // namespace quorvel
