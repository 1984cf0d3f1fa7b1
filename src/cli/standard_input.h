// A document that comes by standard input, from a pipe or from somebody who types it.
#pragma once

#include <string>

#include "files/read_file.h"
#include "util/fault.h"
#include "util/progress.h"

namespace quorvel {

// What users know it by.
inline constexpr const char* STANDARD_INPUT = "standard input";

// Reads standard input to its end, in the name of `path`, and lets events run meanwhile. `tooLong`,
// `notRead`, `stopped`.
[[nodiscard]] Result<InputBytes> ReadStandardInput(const std::string& path, Progress& progress);

}  // namespace quorvel
