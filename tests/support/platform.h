// What tests want of the system that they run on, and what it does not have.
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

// An empty value takes the variable away, as on Windows.
inline void SetVariable(const char* name, const std::string& value) {
  if (value.empty()) {
    ::unsetenv(name);
  } else {
    ::setenv(name, value.c_str(), 1);
  }
}
#endif

// A sanitizer gives memory of its own, takes addresses by terabytes and wants more of the stack and
// more descriptors: a test in which these are short is skipped there.
#ifdef __SANITIZE_ADDRESS__
inline constexpr bool CAN_LIMIT_MEMORY = false;
#else
inline constexpr bool CAN_LIMIT_MEMORY = true;
#endif

}  // namespace quorvel

// The rest of a test is for a system other than Windows; says why.
#define SKIP_ON_WINDOWS(why) \
  if (ON_WINDOWS) GTEST_SKIP() << "on Windows " why
