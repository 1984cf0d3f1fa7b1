// quorvel-cli: the concordance of one document, for scripts and batches.

#include <cstdio>
#include <exception>

#include "cli/options.h"
#include "cli/platform.h"
#include "cli/terminal_interface.h"
#include "cli/word_lists.h"
#include "engine/run_state.h"
#include "files/file_system.h"
#include "output/concordance_file.h"
#include "output/index_file.h"
#include "run/run_driver.h"
#include "settings/settings_file.h"

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

void SayLanguageUnknown(const ConcordanceSettings& settings, TerminalInterface& ui) {
  ui.Say("The language of " + settings.inputFile +
         " could not be recognized; the stop words are the English ones.");
}

int SaveSettings(const ConcordanceSettings& settings, const std::string& path,
                 TerminalInterface& ui) {
  const std::string errorText = SaveState(settings, path);
  if (errorText.empty()) return 0;
  ui.Say(path + ": " + errorText);
  return 1;
}

// What a script or its user wants to know of a run's files, beyond what the core says of them.
// False when a file that was asked for is not there.
bool ReportFiles(const RunState& state, RunOutcome outcome, bool languageKnown,
                 TerminalInterface& ui) {
  // A search is silent about a file that it cannot write.
  if (outcome == RunOutcome::failed && !ui.HasSpoken() && !state.outputSink) {
    ui.Say(WritingFailed(Mode::search));
  }
  if (!state.fileFault.empty()) ui.Say(state.fileFault);
  if (!languageKnown && state.outputWritten) SayLanguageUnknown(state.settings, ui);
  return state.fileFault.empty();
}

int Run(const CommandLine& commandLine) {
  TerminalInterface ui(commandLine.answerPolicy, commandLine.quiet, commandLine.settings.inputFile);
  RunState state;
  state.settings = commandLine.settings;
  StopOnSignals();
  const bool saves = !commandLine.settingsFileToSave.empty();
  const bool languageKnown = (!saves && state.settings.mode != Mode::create) ||
                             SettleStopWordsFile(commandLine.language, state.settings, ui);
  if (saves) {
    if (!languageKnown) SayLanguageUnknown(state.settings, ui);
    return SaveSettings(state.settings, commandLine.settingsFileToSave, ui);
  }
  state.listsOnce = true;
  state.outputFormat = commandLine.format;
  state.encodingChoice = commandLine.encodingChoice;
  if (commandLine.toStandardOutput) {
    LetStandardOutputBeBytes();
    state.outputSink = WriteToStandardOutput;
  }
  // The list of the input's own language is no news.
  if (!LoadWordLists(state, commandLine.language != "auto", ui)) {
    return ExitStatusOf(ui.StopRequested() ? RunOutcome::stopped : RunOutcome::refused);
  }
  if (commandLine.useIndex) ReadIndexFile(state, false, ui);
  const RunOutcome outcome = RunConcordance(state, ui);
  if (outcome == RunOutcome::nothingFound) {
    ui.Say("No words satisfying the conditions were found.");
  }
  const bool filesWritten = ReportFiles(state, outcome, languageKnown, ui);
  if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0) {
    ui.Say("An error occurred when writing to standard output.");
    return 1;
  }
  const int status = ExitStatusOf(outcome);
  return status == 0 && !filesWritten ? 1 : status;
}

}  // namespace
}  // namespace quorvel

int main(int argumentCount, char** arguments) try {
  quorvel::LetOversizedWritesFail();
  quorvel::PrepareTerminal();
  quorvel::TakeMemoryInLargeSteps();
  const quorvel::CommandLine commandLine =
      quorvel::ReadCommandLine(quorvel::ProgramArguments(argumentCount, arguments));
  return commandLine.exitStatus ? *commandLine.exitStatus : quorvel::Run(commandLine);
} catch (const quorvel::EndRequested& request) {
  quorvel::EndBySignal(request.signal);
} catch (const std::exception& error) {
  std::fprintf(stderr, "quorvel-cli: %s\n", error.what());  // NOLINT(*-vararg)
  return 1;
}
