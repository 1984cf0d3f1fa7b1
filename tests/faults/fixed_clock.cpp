// A library that is loaded before the C library (LD_PRELOAD) and stops the clock, so that two runs
// write the same bytes.

#include <ctime>

// This has the name of the C library.
// NOLINTNEXTLINE(readability-identifier-naming)
extern "C" std::time_t time(std::time_t* into) noexcept {
  constexpr std::time_t NOON = 1764590400;
  if (into != nullptr) *into = NOON;
  return NOON;
}
