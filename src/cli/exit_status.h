// The exit statuses of the command line. 0 means done.
#pragma once

namespace quorvel::exit_status {

inline constexpr int FAILED = 1;  // or refused
inline constexpr int WRONG_USAGE = 2;
inline constexpr int NOTHING_FOUND = 3;
inline constexpr int STOPPED = 130;  // as shells report Ctrl-C

}  // namespace quorvel::exit_status
