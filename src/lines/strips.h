// Where in a document a word stands: the strip of the document, cut into columns, with how often it
// occurs in each; and a picture of such strips.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "lines/lines.h"
#include "util/piece_sink.h"

namespace quorvel {

// How many of the 1-based `positions` lie in each of `columns`, at least one, equal parts of a text
// of `length` code units.
[[nodiscard]] std::vector<std::int32_t> StripOf(std::span<const std::int32_t> positions,
                                                std::size_t length, int columns);

// The column of a position, 0-based.
[[nodiscard]] int ColumnOf(std::int32_t position, std::size_t length, int columns);

// Draws one strip for each of these entries, with the word and its number of lines, under a title
// in UTF-8: an SVG picture, handed on front to back. After a stop request it ends as a picture that
// is whole.
void DrawStrips(std::string_view title, const LineSource& source,
                std::span<const std::int32_t> entries, const PieceSink& take, Progress& progress);

}  // namespace quorvel
