// Runs the command line for a single document.
#pragma once

#include <memory>

#include "cli/options.h"
#include "cli/terminal_interface.h"
#include "engine/language_recognition.h"
#include "run/listing_run.h"

namespace quorvel {

// The file to name in a message about lack of memory.
[[nodiscard]] const std::string& FileOf(const CommandLine& commandLine);

// Runs a command line and returns its exit status. Output for standard output goes to `result`;
// `resultPath` is the file behind it, if any. `languages` is used to recognize the input's
// language, if it is already loaded.
[[nodiscard]] int RunDocument(const CommandLine& commandLine, const ByteSink& result,
                              const std::string& resultPath, TerminalInterface& ui,
                              std::shared_ptr<const LanguagesByWord> languages = nullptr);

}  // namespace quorvel
