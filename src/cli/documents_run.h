// Runs the command line for several documents, some of them in parallel. Each document has the same
// result as in a run of its own.
#pragma once

#include <string>

#include "cli/options.h"
#include "cli/terminal_interface.h"
#include "run/listing_run.h"

namespace quorvel {

// Lists each of the inputs; for a folder, all documents in it and its subfolders in the order of
// their paths. If they are not listed beside the inputs, their results are joined in this order,
// rows as one table. Returns the worst exit status; all faults have been reported. `result` and
// `resultPath` are standard output, as in RunDocument.
[[nodiscard]] int RunDocuments(const CommandLine& commandLine, const ByteSink& result,
                               const std::string& resultPath, TerminalInterface& ui);

}  // namespace quorvel
