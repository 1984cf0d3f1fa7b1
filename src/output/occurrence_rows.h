// The occurrences behind a listing as a table for other programs, one row for each occurrence:
// tab-separated values or a JSON array, in UTF-8.
//
// The rows are in the order of the listing, or all words together in an order of lines. Contexts
// are cut as in the listing, but not merged or marked. In a search, an occurrence that matches
// several keywords is one row. With a context size of 0, each row is a word. The rows are written
// as they are composed; only one piece of the table is in memory at a time.
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
  // If set, the rows are part of a table of several documents. This name of the document, in UTF-8,
  // is the first field of each row, and the beginning and end of the table are left out. In JSON
  // each row begins with a comma.
  std::optional<std::string> file = {};
  LineOrder order = {};  // by place: the order of the listing
};

// The texts before the first and after the last row of a table of several documents.
[[nodiscard]] std::string TableBegin(RowFormat format, int contextSize);
[[nodiscard]] std::string_view TableEnd(RowFormat format);

// Composes the table of a listing's occurrences and passes it to `take` in order. After a stop
// request the table ends with the current word, and is complete and valid.
void ComposeRows(const Listing& listing, const RowOptions& options, const PieceSink& take,
                 Progress& progress);

// Like ComposeRows, for some lines of a listing in the given order. With `withTimes`, each row also
// has the number of equal lines that it stands for.
void ComposeLines(const Listing& listing, std::span<const LineGroup> lines, bool withTimes,
                  RowFormat format, const PieceSink& take, Progress& progress);

}  // namespace quorvel
