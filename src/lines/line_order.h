// In which order lines stand: by their places, or by what stands right or left of the word.
//
// Left and right order go word by word from the match outwards, each word folded as for sorting
// (context_words.h); lines that are equal so far stand in the order of their places.
#pragma once

#include "lines/lines.h"

namespace quorvel {

enum class LineKey { place, right, left, match };

struct LineOrder {
  LineKey key = LineKey::place;
  int fromWord = 1;           // of a context: the word, counted from the match, to begin with
  bool isDescending = false;  // the place, where it decides among equals, is ascending even then
};

// Puts lines of the source into an order. False after a stop: then they stand in any order.
[[nodiscard]] bool OrderLines(Lines& lines, const LineSource& source, const LineOrder& order,
                              Progress& progress);

}  // namespace quorvel
