// The reader of text documents.
//
// It cuts a file into lines and joins them again in the way that is asked for,
// repairing UTF-8 on the way if need be. The result is bytes, each one character
// of Windows-1252.
#pragma once

#include <cstddef>
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

// Does so for bytes that come in pieces, cut anywhere.
class LineJoiner {
 public:
  // `length` is that of all pieces, as far as it is known: room is made for them.
  LineJoiner(const ReadOptions& options, std::size_t length);

  // Takes the next piece. False when no more lines are wanted.
  bool Add(std::string_view piece);

  // What has been joined, after the last piece. To be called once.
  [[nodiscard]] TextFile Finish();

 private:
  void AddLine(std::string_view line);
  [[nodiscard]] bool IsDone() const;

  ReadOptions options_;
  TextFile joined_;
  std::string begun_;            // the line whose end is still to come
  std::string repaired_;         // the line at hand
  bool isFirst_ = true;          // nothing was taken off the file yet
  bool endsWithReturn_ = false;  // the last piece, so an LF may still belong to it
};

}  // namespace quorvel
