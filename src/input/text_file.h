// The lines of a text document.
//
// Cut at their ends and joined again in the way that is asked for, UTF-8 repaired on the way if
// need be. The result is bytes, each one character of Windows-1252 unless the text was valid UTF-8
// and is to stay so.
#pragma once

#include <string>
#include <string_view>

namespace quorvel {

enum class LineJoin { blank, slash };  // " " or " / "

struct ReadOptions {
  bool convertUtf8 = false;  // and make typographic punctuation plain
  LineJoin join = LineJoin::slash;
  bool lineFeedEnds = false;  // an LF alone ends a line, too
};

// Joins the lines of a text that are not empty. A line ends at CR LF or at a CR alone. With
// convertUtf8 a byte-order mark at the very start is dropped.
[[nodiscard]] std::string ReadTextFile(std::string_view bytes, const ReadOptions& options);

}  // namespace quorvel
