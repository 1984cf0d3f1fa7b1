// The reader of text documents.
//
// It cuts a file into lines and joins them again in the way that is asked for,
// repairing UTF-8 on the way if need be. The result is bytes, each one character
// of Windows-1252.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace quorvel {

enum class LineJoin { lineBreak, blank, slash };  // CR LF, " " or " / "

struct ReadOptions {
  bool skipEmptyLines = false;
  std::int64_t maxLines = 0;  // stop after so many lines are kept; 0 for no limit
  bool convertUtf8 = false;
  bool cleanUp = false;  // plain punctuation too; acts only together with convertUtf8
  LineJoin join = LineJoin::lineBreak;
};

struct TextFile {
  std::string text;
  std::string errorText;  // empty on success
  int errorNumber = 0;
  std::int64_t linesKept = 0;
};

// Reads the lines of a file. A line ends at CR LF or at a CR alone, never at an
// LF alone. With convertUtf8 a byte-order mark at the very start is dropped.
[[nodiscard]] TextFile ReadTextFile(const std::string& path, const ReadOptions& options);

// The same for bytes that have been read already.
[[nodiscard]] TextFile JoinLines(std::string_view bytes, const ReadOptions& options);

}  // namespace quorvel
