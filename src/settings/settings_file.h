// The settings record in a file: the state file that the window reads when it starts
// and writes when it ends, and settings files of the user's choosing.
//
// 22 lines, one value a line, see docs/settings-file.md.
#pragma once

#include <string>

#include "files/output_file.h"
#include "settings/settings.h"

namespace quorvel {

// The state file of this user.
[[nodiscard]] std::string StateFilePath();

// Writes the settings to the file at `path`, or to the state file, whose folder is made
// where it is missing, when `path` is empty; never in the place of one of the files to keep. Gives
// an empty text, or what went wrong; then an older file is as it was.
[[nodiscard]] std::string SaveState(const ConcordanceSettings& settings, const std::string& path,
                                    const FilesToKeep& kept);

struct RestoredState {
  std::string errorText;     // empty when all values were read
  bool modeSelected = true;  // false where the file selects neither mode
};

// Reads the settings from the file at `path`, or from the state file when it is empty.
// While the program is `starting` the mode becomes create, whatever the file says. What
// was read before a fault stays. An input, search-results or keywords file that does
// not exist is left out; the mode stays as it is where the file selects neither.
[[nodiscard]] RestoredState RestoreSavedState(ConcordanceSettings& settings,
                                              const std::string& path, bool starting);

}  // namespace quorvel
