// Runs of the command line over several documents: each as if it were alone, some at once.
#pragma once

#include <string>

#include "cli/options.h"
#include "cli/terminal_interface.h"
#include "run/listing_run.h"

namespace quorvel {

// Lists each of the inputs, and of a folder all documents in it and below, in the order of their
// paths. Where they are not listed beside themselves, what comes of them goes one way in that
// order: the rows as one table. Gives the worst exit status; each fault has been told. `result` and
// `resultPath` are standard output, as for one document.
[[nodiscard]] int RunDocuments(const CommandLine& commandLine, const ByteSink& result,
                               const std::string& resultPath, TerminalInterface& ui);

}  // namespace quorvel
