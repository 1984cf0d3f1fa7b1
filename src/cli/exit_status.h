// The exit statuses of the command line, beside 0 for done.
#pragma once

namespace quorvel::exit_status {

inline constexpr int FAILED = 1;  // or refused
inline constexpr int WRONG_USAGE = 2;
inline constexpr int NOTHING_FOUND = 3;
inline constexpr int STOPPED = 130;  // as a shell tells of Ctrl-C

}  // namespace quorvel::exit_status
