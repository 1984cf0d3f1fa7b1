// Goes through the words of a table that are listed, in the order of the listing.
#pragma once

#include <cstdint>
#include <functional>

#include "engine/word_table.h"
#include "settings/settings.h"
#include "util/user_interface.h"

namespace quorvel {

// Hands the included words to `list`, one after the other in the order asked for, until that
// gives false or the user wants it to end, and shows the progress. False only where `list` gave
// false; whether it was stopped the user interface knows.
[[nodiscard]] bool ForEachListedWord(const WordTable& table, WordOrder order, UserInterface& ui,
                                     const std::function<bool(const WordEntry&)>& list);

}  // namespace quorvel
