// Reads the lines of a text document.
//
// The text is split at its line ends and joined again with a separator, and UTF-8 is repaired if
// requested. Each byte of the result is one Windows-1252 character, unless the text is valid UTF-8
// that is not converted.
#pragma once

#include <string>
#include <string_view>

namespace quorvel {

enum class LineJoin { blank, slash };  // " " or " / "

struct TextFileOptions {
  bool convertUtf8 = false;  // also replaces typographic punctuation by plain characters
  LineJoin join = LineJoin::slash;
  bool lineFeedEnds = false;  // a single LF ends a line too
};

// Joins the non-empty lines of a text. A line ends at CR LF or at a single CR. With `convertUtf8`,
// a byte-order mark at the start is dropped.
[[nodiscard]] std::string ReadTextFile(std::string_view bytes, const TextFileOptions& options);

}  // namespace quorvel
