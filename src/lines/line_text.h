// Lines as plain text: aligned, with the matches in one column, or tabbed, with tabs between left
// context, match and right context.
#pragma once

#include <span>

#include "lines/line_filter.h"
#include "lines/lines.h"
#include "util/piece_sink.h"

namespace quorvel {

enum class LineForm { aligned, tabbed };

// Passes the lines to `take` in their order, as UTF-8, each followed by LF. `withTimes` adds the
// number of equal lines. After a stop request it ends with the current line.
void ComposeLineText(std::span<const LineGroup> lines, const LineSource& source, LineForm form,
                     bool withTimes, const PieceSink& take, Progress& progress);

}  // namespace quorvel
