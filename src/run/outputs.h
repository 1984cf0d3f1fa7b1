// The files that a run writes, and the one place that says which of them must not be written.
#pragma once

#include <string>
#include <vector>

#include "files/output_file.h"
#include "run/conversation.h"
#include "settings/settings.h"

namespace quorvel {

struct Output {
  std::string name;  // as messages have it: "concordance file"
  std::string path;  // empty where no file is written
};

// The listing's file in the settings' mode; one that is disabled has no path.
[[nodiscard]] Output ListingOutputOf(const ConcordanceSettings& settings);

// The index file beside the input.
[[nodiscard]] Output IndexOutputOf(const ConcordanceSettings& settings);

// The file of a picture.
[[nodiscard]] Output PictureOutputOf(const std::string& path);

// Whether none of the outputs would replace a file to keep or an output before it; else the user is
// told, and nothing is to be written.
[[nodiscard]] bool CheckOutputs(const std::vector<Output>& outputs, FilesToKeep kept,
                                Conversation& ui);

}  // namespace quorvel
