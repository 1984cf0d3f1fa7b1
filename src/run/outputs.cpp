#include "run/outputs.h"

#include <optional>

#include "files/path_names.h"
#include "output/concordance_file.h"
#include "util/ascii.h"

namespace quorvel {

Output ListingOutputOf(const ConcordanceSettings& settings) {
  const bool disabled = settings.mode == Mode::create && settings.outputToFileDisabled;
  return {LowerAscii(OutputName(settings.mode)), disabled ? "" : OutputFileOf(settings)};
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
