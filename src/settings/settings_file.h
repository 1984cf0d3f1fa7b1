// Stores the settings in a file: the state file, which the window reads at its start and writes at
// its end, and settings files that the user chooses.
//
// A file has 22 lines with one value each; see docs/settings-file.md.
#pragma once

#include <string>

#include "files/output_file.h"
#include "settings/settings.h"

namespace quorvel {

// The path of the user's state file.
[[nodiscard]] std::string StateFilePath();

// Writes the settings to the file at `path`, or to the state file when `path` is empty; its folder
// is created if needed. Never replaces one of the `kept` files. Returns an empty text on success.
// On failure it returns the error message, and an existing file is unchanged.
[[nodiscard]] std::string SaveState(const ConcordanceSettings& settings, const std::string& path,
                                    const FilesToKeep& kept);

struct RestoredState {
  std::string errorText;     // empty when all values were read
  bool modeSelected = true;  // false when the file selects neither mode
};

// Reads the settings from the file at `path`, or from the state file when `path` is empty. With
// `starting`, at program start, the mode is always create. On failure, the values before the fault
// are kept. An input, search-results or keywords file that does not exist is dropped. The mode is
// unchanged when the file selects neither mode.
[[nodiscard]] RestoredState RestoreSavedState(ConcordanceSettings& settings,
                                              const std::string& path, bool starting);

}  // namespace quorvel
