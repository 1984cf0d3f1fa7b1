#include "run/outputs.h"

#include <optional>

#include "files/path_names.h"

namespace quorvel {

std::string OutputName(Mode mode) {
  return mode == Mode::create ? "concordance file" : "search results file";
}

const std::string& OutputFileOf(const ConcordanceSettings& settings) {
  return settings.mode == Mode::create ? settings.outputFile : settings.searchResultsFile;
}

Output ListingOutputOf(const ConcordanceSettings& settings) {
  const bool disabled = settings.mode == Mode::create && settings.outputToFileDisabled;
  return {OutputName(settings.mode), disabled ? "" : OutputFileOf(settings)};
}

Output IndexOutputOf(const ConcordanceSettings& settings) {
  return {"index file", DefaultIndexFileName(settings.inputFile)};
}

bool CheckOutputs(const std::vector<Output>& outputs, FilesToKeep kept, Conversation& ui) {
  for (const Output& output : outputs) {
    if (const std::optional<Fault> fault = WouldReplace(output.path, kept)) {
      ui.Tell("The " + output.name + " cannot be the same as the " + fault->reason + ".",
              STANDARD_TITLE);
      return false;
    }
    kept.push_back({output.name, output.path});
  }
  return true;
}

}  // namespace quorvel
