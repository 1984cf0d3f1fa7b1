// Orders lines by place, by match, or by the words to the right or left of the match.
//
// The right and left orders compare word by word, starting at the match. Words are folded for
// sorting (context_words.h). Equal lines are ordered by place.
#pragma once

#include "lines/lines.h"

namespace quorvel {

enum class LineKey { place, right, left, match };

struct LineOrder {
  LineKey key = LineKey::place;
  // For right and left: the first word that is compared, counted from the match.
  int fromWord = 1;
  bool isDescending = false;  // equal lines stay in ascending order of place
};

// Sorts lines of the source. Returns false after a stop; the lines are then in any order.
[[nodiscard]] bool OrderLines(Lines& lines, const LineSource& source, const LineOrder& order,
                              Progress& progress);

}  // namespace quorvel
