// What tests need from the system, and what it lacks.
#pragma once

#include <cstdlib>
#include <string>

namespace quorvel {

#ifdef _WIN32
inline constexpr bool ON_WINDOWS = true;
inline constexpr const char* NULL_DEVICE = "NUL";

inline void SetVariable(const char* name, const std::string& value) {
  _putenv_s(name, value.c_str());
}
#else
inline constexpr bool ON_WINDOWS = false;
inline constexpr const char* NULL_DEVICE = "/dev/null";

// An empty value removes the variable, as on Windows.
inline void SetVariable(const char* name, const std::string& value) {
  if (value.empty()) {
    ::unsetenv(name);
  } else {
    ::setenv(name, value.c_str(), 1);
  }
}
#endif

// A sanitizer has its own memory functions, reserves terabytes of addresses, and needs more stack
// and more descriptors. Tests with limits on these are skipped under a sanitizer.
#ifdef __SANITIZE_ADDRESS__
inline constexpr bool CAN_LIMIT_MEMORY = false;
#else
inline constexpr bool CAN_LIMIT_MEMORY = true;
#endif

}  // namespace quorvel

// Skips the rest of a test on Windows, with the reason.
#define SKIP_ON_WINDOWS(why) \
  if (ON_WINDOWS) GTEST_SKIP() << "on Windows " why
