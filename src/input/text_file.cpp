#include "input/text_file.h"

#include <algorithm>
#include <utility>

#include "files/file_system.h"
#include "input/utf8_repair.h"
#include "util/ansi.h"
#include "util/large_pages.h"

namespace quorvel {
namespace {

std::string_view SeparatorOf(LineJoin join) {
  if (join == LineJoin::blank) return " ";
  return join == LineJoin::slash ? " / " : "\r\n";
}

}  // namespace

TextFile ReadTextFile(const std::string& path, const ReadOptions& options) {
  constexpr std::size_t PIECE_LENGTH = 65536;
  const auto length = static_cast<std::uint64_t>(FileLength(path).value_or(0));
  LineJoiner joiner(options, static_cast<std::size_t>(std::min(length, MOST_BYTES_READ)));
  const int error = ReadFileInChunks(
      path, PIECE_LENGTH, [&joiner](std::string_view piece) { return joiner.Add(piece); });
  if (error == 0) return joiner.Finish();
  TextFile failed;
  failed.errorText = SystemMessage(error);
  failed.errorNumber = error;
  return failed;
}

LineJoiner::LineJoiner(const ReadOptions& options, std::size_t length) : options_(options) {
  ReserveLarge(joined_.text, length + length / 16);
}

bool LineJoiner::Add(std::string_view piece) {
  if (piece.empty()) return !IsDone();
  if (endsWithReturn_ && piece.front() == '\n') piece.remove_prefix(1);
  endsWithReturn_ = piece.ends_with('\r');
  while (!IsDone()) {
    const std::size_t length = piece.find('\r');
    if (length == std::string_view::npos) break;
    if (begun_.empty()) {
      AddLine(piece.substr(0, length));
    } else {
      AddLine(begun_.append(piece.substr(0, length)));
      begun_.clear();
    }
    const bool withLineFeed = length + 1 < piece.size() && piece[length + 1] == '\n';
    piece.remove_prefix(length + (withLineFeed ? 2 : 1));
  }
  begun_ += piece;
  return !IsDone();
}

TextFile LineJoiner::Finish() {
  if (!begun_.empty() && !IsDone()) AddLine(begun_);
  return std::move(joined_);
}

void LineJoiner::AddLine(std::string_view line) {
  if (isFirst_ && options_.convertUtf8 && line.starts_with(BYTE_ORDER_MARK)) {
    line.remove_prefix(BYTE_ORDER_MARK.size());
  }
  isFirst_ = false;
  if (options_.skipEmptyLines && line.empty()) return;
  ++joined_.linesKept;
  if (options_.convertUtf8) {
    repaired_.assign(line);
    RepairUtf8(repaired_);
    if (options_.cleanUp) PlainPunctuation(repaired_);
    line = repaired_;
  }
  if (!joined_.text.empty()) joined_.text += SeparatorOf(options_.join);
  joined_.text += line;
}

bool LineJoiner::IsDone() const {
  return options_.maxLines > 0 && joined_.linesKept == options_.maxLines;
}

}  // namespace quorvel
