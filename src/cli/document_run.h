// One run of the command line: the document of its settings, listed to where they say.
#pragma once

#include <memory>

#include "cli/options.h"
#include "cli/terminal_interface.h"
#include "engine/language_recognition.h"
#include "run/listing_run.h"

namespace quorvel {

// The file that a lack of memory is told of.
[[nodiscard]] const std::string& FileOf(const CommandLine& commandLine);

// Runs it and gives its exit status. What is for standard output goes to `result`; the file behind
// that, if any, is `resultPath`. `languages` tell the input's, where they have been read already.
[[nodiscard]] int RunDocument(const CommandLine& commandLine, const ByteSink& result,
                              const std::string& resultPath, TerminalInterface& ui,
                              std::shared_ptr<const LanguagesByWord> languages = nullptr);

}  // namespace quorvel
