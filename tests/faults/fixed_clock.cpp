// A library that is loaded before the C library (LD_PRELOAD) and lets the clock stand still, so
// that two runs write the same.

#include <ctime>

// Named as the C library has it.
// NOLINTNEXTLINE(readability-identifier-naming)
extern "C" std::time_t time(std::time_t* into) noexcept {
  constexpr std::time_t NOON = 1764590400;
  if (into != nullptr) *into = NOON;
  return NOON;
}
