// A run on one file of its own, with a scripted user.
#pragma once

#include <string>
#include <string_view>

#include "run/run_driver.h"
#include "support/scripted_interface.h"
#include "support/test_folder.h"

namespace quorvel {

struct TestRun {
  TestFolder folder;
  RunState state;
  ConcordanceSettings& settings = state.settings;
  ScriptedInterface ui;

  explicit TestRun(std::string_view bytes, std::string_view name = "a.txt") {
    settings.inputFile = folder.Write(name, bytes);
    settings.outputFile = folder.Path("out.txt");
  }

  RunOutcome Go() { return RunConcordance(state, ui); }

  // What the output file holds behind its header.
  [[nodiscard]] std::string Entries() const {
    const std::string bytes = folder.Read("out.txt");
    const std::size_t header = bytes.find("\r\n\r\n");
    return header == std::string::npos ? bytes : bytes.substr(header + 4);
  }
};

}  // namespace quorvel
