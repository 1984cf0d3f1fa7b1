// Whether a test can leave a program short of memory.
#pragma once

namespace quorvel {

// A sanitizer takes its memory by terabytes: a test with a limit is skipped there.
#ifdef __SANITIZE_ADDRESS__
inline constexpr bool CAN_LIMIT_MEMORY = false;
#else
inline constexpr bool CAN_LIMIT_MEMORY = true;
#endif

}  // namespace quorvel
