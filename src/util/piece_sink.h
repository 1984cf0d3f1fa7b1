// A callback that receives a text piece by piece.
#pragma once

#include <functional>
#include <string_view>

namespace quorvel {

// Receives the next piece, valid only during the call. Returns false to stop the composing.
using PieceSink = std::function<bool(std::string_view piece)>;

}  // namespace quorvel
