// The concordance file and the search-results file: a short header that names the
// input, then the entries, as text with CR LF line ends, in Windows-1252 or UTF-8 as the input was
// read.
#pragma once

#include <ctime>
#include <string>
#include <string_view>

#include "settings/settings.h"

namespace quorvel {

// What a mode's file is called in messages: "Concordance file" or "Search results file".
[[nodiscard]] std::string OutputName(Mode mode);

// The program's version as headers show it: "21.36".
[[nodiscard]] std::string VersionText();

// The name of the file that a run in the settings' mode writes; may be empty.
[[nodiscard]] const std::string& OutputFileOf(const ConcordanceSettings& settings);

// The header of the file that is written at `time`, as UTF-8 with CR LF line ends. `digest` is that
// of the input file; the header of a search has none.
[[nodiscard]] std::string FileHeader(Mode mode, const std::string& inputFile,
                                     std::string_view digest, std::time_t time);

}  // namespace quorvel
