#include "run/result_writer.h"

#include <utility>

namespace quorvel {

ResultWriter::ResultWriter(const ListingTarget& target, std::string begin, std::string_view end)
    : sink_(target.sink), bytes_(std::move(begin)), end_(end) {
  if (!sink_) file_.emplace(target.path, target.kept, target.targets);
}

bool ResultWriter::Add(std::string_view piece) {
  constexpr std::size_t PIECE = std::size_t{1} << 18U;  // bytes
  bytes_ += piece;
  return bytes_.size() < PIECE || HandOn();
}

bool ResultWriter::Commit(Conversation& ui) {
  bytes_ += end_;
  if (!HandOn()) return false;
  if (!file_) return true;
  // To replace a large file the system takes its time, and more so on a disk that is busy.
  ui.YieldAtOnce();
  return file_->Commit();
}

std::optional<Fault> ResultWriter::Why() const { return file_ ? file_->Why() : std::nullopt; }

bool ResultWriter::HandOn() {
  taken_ = taken_ && (file_ ? file_->Write(bytes_) : sink_(bytes_));
  bytes_.clear();
  return taken_;
}

}  // namespace quorvel
