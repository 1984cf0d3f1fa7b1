// Reads a document from standard input: a pipe, a file or a terminal.
#pragma once

#include <string>

#include "files/read_file.h"
#include "util/fault.h"
#include "util/progress.h"

namespace quorvel {

// The name of standard input in messages.
inline constexpr const char* STANDARD_INPUT = "standard input";

// Reads standard input to its end and lets events run meanwhile. `path` is the path of the result.
// Faults: `tooLong`, `notRead`, `stopped`.
[[nodiscard]] Result<InputBytes> ReadStandardInput(const std::string& path, Progress& progress);

}  // namespace quorvel
