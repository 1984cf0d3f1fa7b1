// The occurrences behind a listing as a table that other programs read, one row each:
// tab-separated values or a JSON array, in UTF-8.
//
// The rows stand in the order of the listing or, all words together, in one of lines, with contexts
// cut as in the listing; nothing is merged or marked, and in a search an occurrence that several
// keywords find is one row. With a context size of 0, where the listing is a bare word list, each
// row is a word. They are written as they are made: never is more than a piece of the table in
// memory.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "lines/line_filter.h"
#include "lines/line_order.h"
#include "output/listing.h"
#include "util/progress.h"

namespace quorvel {

enum class RowFormat { tsv, json };

struct RowOptions {
  RowFormat format = RowFormat::tsv;
  // Where set, the rows are a part of a table of several documents: this name of theirs, in UTF-8,
  // is the first field of each row, and what stands around the rows of a table is left out. In JSON
  // each row has a comma before it.
  std::optional<std::string> file = {};
  LineOrder order = {};  // by place: as in the listing
};

// What stands before the first and behind the last row of a table of several documents.
[[nodiscard]] std::string TableBegin(RowFormat format, int contextSize);
[[nodiscard]] std::string_view TableEnd(RowFormat format);

// Composes the table of a listing's occurrences and hands it on, front to back. After a stop
// request it ends with the word that was under way, and as a table that is whole.
void ComposeRows(const Listing& listing, const RowOptions& options, const PieceSink& take,
                 Progress& progress);

// The same of some lines of a listing in the order given; `withTimes` adds for how many equal ones
// each stands.
void ComposeLines(const Listing& listing, std::span<const LineGroup> lines, bool withTimes,
                  RowFormat format, const PieceSink& take, Progress& progress);

}  // namespace quorvel
