#include "util/progress_bar.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace quorvel {

std::string ProgressCaption(int position) {
  if (position <= 0) return "[>" + std::string(PROGRESS_BAR_WIDTH, ' ') + "]";
  const std::string done(static_cast<std::size_t>(position - 1), '-');
  const std::string left(static_cast<std::size_t>(std::max(PROGRESS_BAR_WIDTH - position, 0)), ' ');
  return "[" + done + ">" + left + "]";
}

ProgressBar::ProgressBar(Progress& progress) : progress_(progress) {
  progress_.ShowBar(ProgressCaption(0));
}

ProgressBar::~ProgressBar() { progress_.ShowBar(""); }

// The position is rounded to the nearest cell, halves to even. The bar cannot change again before
// another half cell is done.
void ProgressBar::Redraw(std::int64_t current, std::int64_t total, std::int64_t threshold) {
  if (total < threshold || total <= 0) {
    nextChange_ = std::numeric_limits<std::int64_t>::max();
    return;
  }
  const double cells = static_cast<double>(PROGRESS_BAR_WIDTH) * static_cast<double>(current) /
                       static_cast<double>(total);
  const int position = static_cast<int>(std::nearbyint(cells));
  const double nextCell = (position + 0.5) * static_cast<double>(total) / PROGRESS_BAR_WIDTH;
  nextChange_ = std::max(current + 1, static_cast<std::int64_t>(nextCell));
  if (position == position_) return;
  position_ = position;
  progress_.ShowBar(ProgressCaption(position));
}

}  // namespace quorvel
