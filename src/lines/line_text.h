// Lines as plain text: to be read, with their matches in one column, or to be pasted, with a tab
// between left context, match and right context.
#pragma once

#include <span>
#include <string>

#include "lines/line_filter.h"
#include "lines/lines.h"
#include "util/piece_sink.h"

namespace quorvel {

enum class LineForm { aligned, tabbed };

// Hands the lines on in their order, in UTF-8, each with LF behind it; `withTimes` adds for how
// many equal ones each stands. After a stop request it ends with the line at hand.
void ComposeLineText(std::span<const LineGroup> lines, const LineSource& source, LineForm form,
                     bool withTimes, const PieceSink& take, Progress& progress);

}  // namespace quorvel
