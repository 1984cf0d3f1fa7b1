// Sorting in steps, between which events run and a stop is checked.
#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

#include "util/progress.h"

namespace quorvel {

// Sorts `values` by the strict order `less`, in which no two values are equal. Returns false after
// a stop; the order of the values is then unspecified.
template <typename Value, typename Less>
[[nodiscard]] bool SortInSteps(std::vector<Value>& values, const Less& less, Progress& progress) {
  constexpr std::size_t STEP = 16384;  // takes a few milliseconds to sort
  const auto goesOn = [&progress] {
    progress.YieldNow();
    return !progress.StopRequested();
  };
  const auto at = [&values](std::size_t place) {
    return values.begin() + static_cast<std::ptrdiff_t>(std::min(place, values.size()));
  };
  for (std::size_t i = 0; i < values.size(); i += STEP) {
    std::sort(at(i), at(i + STEP), less);
    if (!goesOn()) return false;
  }
  for (std::size_t width = STEP; width < values.size(); width *= 2) {
    for (std::size_t i = 0; i + width < values.size(); i += 2 * width) {
      std::inplace_merge(at(i), at(i + width), at(i + 2 * width), less);
      if (!goesOn()) return false;
    }
  }
  return true;
}

}  // namespace quorvel
