// The format of the concordance file and the search-results file: a short header that names the
// input, followed by the entries. The text has CR LF line ends, in Windows-1252 or UTF-8 like the
// input.
#pragma once

#include <ctime>
#include <string>
#include <string_view>

#include "settings/settings.h"

namespace quorvel {

// The program's version as users see it: "21.36" for version 21.3.
[[nodiscard]] std::string VersionText();

// Returns the header of a file written at `time`, in UTF-8 with CR LF line ends. `digest` is the
// digest of the input; the header of a search does not contain it.
[[nodiscard]] std::string FileHeader(Mode mode, const std::string& inputFile,
                                     std::string_view digest, std::time_t time);

}  // namespace quorvel
