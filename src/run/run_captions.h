// The caption of the button that starts a run.
#pragma once

#include <string>

#include "settings/settings.h"

namespace quorvel {

// The caption with these settings; messages about a run that cannot start bear it as their title.
[[nodiscard]] inline std::string ListButtonCaption(const ConcordanceSettings& settings) {
  if (settings.mode == Mode::search) return "Search";
  return settings.outputToFileDisabled ? "List words (no file)" : "List words";
}

}  // namespace quorvel
