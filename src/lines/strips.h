// Where in a document a word occurs: a strip has one column for each part of the document, with the
// number of occurrences in it. Also draws a picture of strips.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "lines/lines.h"
#include "util/piece_sink.h"

namespace quorvel {

// How many of the `positions` are in each of `columns` equal parts of a text of `length`
// code units. `columns` is at least 1.
[[nodiscard]] std::vector<std::int32_t> StripOf(std::span<const Position> positions,
                                                std::size_t length, int columns);

// The 0-based column of a position.
[[nodiscard]] int ColumnOf(Position position, std::size_t length, int columns);

// Draws an SVG picture with one strip for each of these entries, with the word and its number of
// lines, under a title in UTF-8. The bytes are passed to `take` in order. After a stop request the
// picture ends early but is still valid.
void DrawStrips(std::string_view title, const LineSource& source,
                std::span<const EntryIndex> entries, const PieceSink& take, Progress& progress);

}  // namespace quorvel
