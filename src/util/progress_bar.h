// The text progress bar: "[---->     ]".
//
// It is updated far more often than its picture changes, so an update that would draw the same
// picture costs one comparison.
#pragma once

#include <cstdint>
#include <string>

#include "util/progress.h"

namespace quorvel {

// The bar's width in character cells.
inline constexpr int PROGRESS_BAR_WIDTH = 40;

// The caption for a bar whose arrow is at cell `position`, from 0 to PROGRESS_BAR_WIDTH.
[[nodiscard]] std::string ProgressCaption(int position);

class ProgressBar {
 public:
  // Shows an empty bar. `progress` must outlive it.
  explicit ProgressBar(Progress& progress);

  // Removes the bar.
  ~ProgressBar();

  ProgressBar(const ProgressBar&) = delete;
  ProgressBar& operator=(const ProgressBar&) = delete;

  // Shows `current` of `total`. Shows nothing when `total` is below `threshold`.
  void Update(std::int64_t current, std::int64_t total, std::int64_t threshold) {
    if (current >= nextChange_) Redraw(current, total, threshold);
  }

 private:
  void Redraw(std::int64_t current, std::int64_t total, std::int64_t threshold);

  Progress& progress_;
  std::int64_t nextChange_ = 0;
  int position_ = 0;
};

}  // namespace quorvel
