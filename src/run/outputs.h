// The files that a run writes, and the check that they do not replace other files.
#pragma once

#include <string>
#include <vector>

#include "files/output_file.h"
#include "run/conversation.h"
#include "settings/settings.h"

namespace quorvel {

struct Output {
  std::string name;  // in messages: "concordance file"
  std::string path;  // empty when no file is written
};

// The name of a mode's listing file in messages.
[[nodiscard]] std::string OutputName(Mode mode);

// The path of the listing's file in the settings' mode. May be empty.
[[nodiscard]] const std::string& OutputFileOf(const ConcordanceSettings& settings);

// The listing's file in the settings' mode. Its path is empty when output to file is disabled.
[[nodiscard]] Output ListingOutputOf(const ConcordanceSettings& settings);

// The index file of the input.
[[nodiscard]] Output IndexOutputOf(const ConcordanceSettings& settings);

// True when no output would replace a file in `kept` or an earlier output. Otherwise the user is
// told, and nothing may be written.
[[nodiscard]] bool CheckOutputs(const std::vector<Output>& outputs, FilesToKeep kept,
                                Conversation& ui);

}  // namespace quorvel
