// quorvel-cli: the concordance of one document, for scripts and batches.

#include <cstdio>
#include <exception>

#include "cli/options.h"
#include "cli/terminal_interface.h"
#include "cli/word_lists.h"
#include "engine/run_state.h"
#include "output/index_file.h"
#include "run/run_driver.h"
#include "settings/settings_file.h"

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#endif

namespace quorvel {
namespace {

bool WriteToStandardOutput(std::string_view bytes) {
  return std::fwrite(bytes.data(), 1, bytes.size(), stdout) == bytes.size();
}

int ExitStatusOf(RunOutcome outcome) {
  switch (outcome) {
    case RunOutcome::done:
      return 0;
    case RunOutcome::nothingFound:
      return 3;
    case RunOutcome::stopped:
      return 130;
    default:
      return 1;
  }
}

int SaveSettings(const ConcordanceSettings& settings, const std::string& path,
                 TerminalInterface& ui) {
  const std::string errorText = SaveState(settings, path);
  if (errorText.empty()) return 0;
  ui.Say(errorText);
  return 1;
}

int Run(const CommandLine& commandLine) {
  TerminalInterface ui(commandLine.answerPolicy, commandLine.quiet);
  RunState state;
  state.settings = commandLine.settings;
  const bool saves = !commandLine.settingsFileToSave.empty();
  if (saves || state.settings.mode == Mode::create) {
    SettleStopWordsFile(commandLine.language, state.settings);
  }
  if (saves) {
    return SaveSettings(state.settings, commandLine.settingsFileToSave, ui);
  }
  state.encodingChoice = commandLine.encodingChoice;
  if (commandLine.toStandardOutput) {
#ifdef _WIN32
    _setmode(_fileno(stdout), _O_BINARY);
#endif
    state.outputSink = WriteToStandardOutput;
  }
  StopOnInterrupt();
  // The list of the input's own language is no news.
  if (!LoadWordLists(state, commandLine.language != "auto", ui)) {
    return ExitStatusOf(ui.StopRequested() ? RunOutcome::stopped : RunOutcome::refused);
  }
  if (commandLine.useIndex) ReadIndexFile(state, false, ui);
  const RunOutcome outcome = RunConcordance(state, ui);
  if (outcome == RunOutcome::nothingFound) {
    ui.Say("No words satisfying the conditions were found.");
  }
  // A search is silent about a file that it cannot write; a script wants to know.
  if (outcome == RunOutcome::failed && !ui.HasSpoken() && !commandLine.toStandardOutput) {
    ui.Say("An error occurred when creating search results file.");
  }
  if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0) {
    ui.Say("An error occurred when writing to standard output.");
    return 1;
  }
  return ExitStatusOf(outcome);
}

}  // namespace
}  // namespace quorvel

int main(int argumentCount, char** arguments) try {
  const quorvel::CommandLine commandLine = quorvel::ReadCommandLine(argumentCount, arguments);
  return commandLine.exitStatus ? *commandLine.exitStatus : quorvel::Run(commandLine);
} catch (const std::exception& error) {
  std::fprintf(stderr, "quorvel-cli: %s\n", error.what());  // NOLINT(*-vararg)
  return 1;
}
