// What the window keeps for its user from one start to the next, beside the settings of the runs: a
// file of its own in the user's configuration folder, in INI form. What is not in it, or is wrong
// there, is as at a first start.
#pragma once

#include "util/alphabet.h"

namespace quorvel {

// How texts are read.
[[nodiscard]] Reading KeptReading();
void KeepReading(Reading reading);

}  // namespace quorvel
