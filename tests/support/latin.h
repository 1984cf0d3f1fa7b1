// The alphabet of nearly all tests: that of Windows-1252.
#pragma once

#include "util/alphabet.h"

namespace quorvel {

inline const Alphabet& latin = Alphabet::Windows1252();

}  // namespace quorvel
