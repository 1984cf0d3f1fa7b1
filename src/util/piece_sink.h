// Who takes a text that is composed piece by piece.
#pragma once

#include <functional>
#include <string_view>

namespace quorvel {

// Takes the next piece, which stays valid for the call only. False when no more of them are wanted.
using PieceSink = std::function<bool(std::string_view piece)>;

}  // namespace quorvel
