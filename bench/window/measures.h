// Common parts of the window's measurements: times in milliseconds and table rows.
#pragma once

#include <QElapsedTimer>
#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

namespace quorvel {

// The elapsed time of `clock`.
inline double Since(const QElapsedTimer& clock) {
  constexpr double NS_PER_MS = 1e6;
  return static_cast<double>(clock.nsecsElapsed()) / NS_PER_MS;
}

inline double MedianOf(std::vector<double> values) {
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

inline void PrintRow(const std::string& caption, const std::vector<double>& values) {
  std::printf("| %s | %.1f | %.1f |\n", caption.c_str(), MedianOf(values),
              *std::max_element(values.begin(), values.end()));
}

}  // namespace quorvel
