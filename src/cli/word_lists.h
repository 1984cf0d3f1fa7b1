// The word lists that a command line names, read before the run.
#pragma once

#include <string>

#include "cli/terminal_interface.h"
#include "engine/run_state.h"

namespace quorvel {

// Reads the keywords of a search, and the stop words: those of the file that the
// settings name, else those of `language`, which is a language's code, "all", "none"
// or "auto" for the language of the input. False when a list could not be read (the
// user has been told) or the user stopped.
[[nodiscard]] bool LoadWordLists(const std::string& language, RunState& state,
                                 TerminalInterface& ui);

}  // namespace quorvel
