// One run, from the settings to the written file.
//
// Owns the order of the phases and what is said between them; each phase does its
// work elsewhere.
#pragma once

#include "engine/run_state.h"
#include "util/user_interface.h"

namespace quorvel {

enum class RunOutcome {
  done,
  refused,       // a check failed or the user declined; they have been told
  nothingFound,  // no word satisfies the conditions
  stopped,       // by the user
  failed,        // what was composed could not all be listed or written
};

// Checks the settings, reads and scans the input, lists its words and writes the
// output file. The state keeps the table and the listing for what comes after.
RunOutcome RunConcordance(RunState& state, UserInterface& ui);

// The caption of the button that starts a run with these settings; messages about
// a run that cannot start bear it as their title.
[[nodiscard]] std::string ListButtonCaption(const ConcordanceSettings& settings);

}  // namespace quorvel
