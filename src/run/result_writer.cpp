#include "run/result_writer.h"

#include <utility>

namespace quorvel {

ResultWriter::ResultWriter(const ListingTarget& target, std::string begin, std::string_view end,
                           std::optional<FormConverter> form)
    : sink_(target.sink), begin_(std::move(begin)), end_(end), form_(std::move(form)) {
  if (!sink_) file_.emplace(target.path, target.kept, target.targets);
}

bool ResultWriter::Add(std::string_view piece) {
  constexpr std::size_t PIECE = std::size_t{1} << 18U;  // bytes
  bytes_ += piece;
  return bytes_.size() < PIECE || HandOn(false);
}

bool ResultWriter::Commit(Conversation& ui) {
  bytes_ += end_;
  if (!HandOn(true)) return false;
  if (!file_) return true;
  // Replacing a large file can take long, especially on a busy disk.
  ui.YieldAtOnce();
  return file_->Commit();
}

std::optional<Fault> ResultWriter::Error() const { return file_ ? file_->Error() : std::nullopt; }

bool ResultWriter::HandOn(bool isLast) {
  if (form_) bytes_ = form_->Next(std::move(bytes_));
  if (form_ && isLast) bytes_ += form_->End();
  if (!begin_.empty()) bytes_.insert(0, std::exchange(begin_, {}));
  taken_ = taken_ && (file_ ? file_->Write(bytes_) : sink_(bytes_));
  bytes_.clear();
  return taken_;
}

}  // namespace quorvel
