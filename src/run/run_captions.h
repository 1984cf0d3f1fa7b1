// The caption of the button that starts a run.
#pragma once

#include <string>

#include "settings/settings.h"

namespace quorvel {

// The caption for these settings. It is also the title of messages about a run that cannot start.
[[nodiscard]] inline std::string ListButtonCaption(const ConcordanceSettings& settings) {
  if (settings.mode == Mode::search) return "Search";
  return settings.outputToFileDisabled ? "List words (no file)" : "List words";
}

}  // namespace quorvel
