// quorvel-cli: the concordance of one document, for scripts and batches.

#include <algorithm>
#include <cstdio>
#include <exception>
#include <new>

#include "cli/options.h"
#include "cli/platform.h"
#include "cli/terminal_interface.h"
#include "cli/word_lists.h"
#include "files/output_file.h"
#include "run/session.h"
#include "util/visible_text.h"

namespace quorvel {
namespace {

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
  ui.Say("The language of " + VisibleName(settings.inputFile) +
         " could not be recognized; the stop words are the English ones.");
}

int SaveSettings(Session& session, const std::string& path, TerminalInterface& ui) {
  const std::optional<std::string> errorText = session.SaveSettings(path);
  if (errorText && errorText->empty()) return 0;
  if (errorText) ui.Say(VisibleName(path) + ": " + *errorText);
  return 1;
}

// What a script or its user wants to know of a run's files, beyond what the core says of them.
// False when a file that was asked for is not there.
bool ReportFiles(Session& session, RunOutcome outcome, OutputFormat format, bool languageKnown,
                 TerminalInterface& ui) {
  const ListingReport& report = session.Report();
  const ConcordanceSettings& settings = session.Settings();
  if (outcome == RunOutcome::nothingFound) {
    ui.Say("No words satisfying the conditions were found.");
  }
  if (report.wordsTooFrequent && settings.mode == Mode::search) {
    ui.Say("The rows of --format tsv have no such limit.");
  }
  // A search is silent about a file that it cannot write.
  const bool isSilent = settings.mode == Mode::search && format == OutputFormat::text;
  const bool listingFailed = outcome == RunOutcome::failed && report.fileFault;
  if (listingFailed && isSilent) ui.Say(WritingFailed(settings.mode));
  if (report.fileFault)
    ui.Say(VisibleName(report.fileFault->file) + ": " + report.fileFault->reason);
  if (!languageKnown && report.written) SayLanguageUnknown(settings, ui);
  return !report.fileFault;
}

SessionOptions OptionsOf(const CommandLine& commandLine, TerminalInterface& ui) {
  SessionOptions options;
  options.outputFormat = commandLine.format;
  options.encodingChoice = commandLine.encodingChoice;
  options.listsOnce = true;
  // Whoever starts it from a shell can end it where nobody reads what it writes.
  options.targets = Targets::all;
  if (commandLine.toStandardOutput) {
    LetStandardOutputBeBytes();
    options.outputSink = [&ui](std::string_view bytes) { return ui.WriteResult(bytes); };
    options.sinkPath = StandardOutputPath();
  }
  return options;
}

int RunOnce(const CommandLine& commandLine, Session& session, TerminalInterface& ui) {
  const bool saves = !commandLine.settingsFileToSave.empty();
  const bool languageKnown = (!saves && session.Settings().mode != Mode::create) ||
                             SettleStopWordsFile(commandLine.language, session);
  if (saves) {
    if (!languageKnown) SayLanguageUnknown(session.Settings(), ui);
    return SaveSettings(session, commandLine.settingsFileToSave, ui);
  }
  // Before a list is read, which may be what standard output has just emptied.
  if (!session.CheckOutputs()) return ExitStatusOf(RunOutcome::refused);
  // The list of the input's own language is no news.
  if (!LoadWordLists(session, commandLine.language != "auto", ui)) {
    return ExitStatusOf(ui.StopRequested() ? RunOutcome::stopped : RunOutcome::refused);
  }
  if (commandLine.useIndex) session.UseIndexFile();
  const RunOutcome outcome = session.RunConcordance();
  const bool filesWritten = ReportFiles(session, outcome, commandLine.format, languageKnown, ui);
  const int status = ExitStatusOf(outcome);
  return status == 0 && !filesWritten ? 1 : status;
}

// The file that a lack of memory is told of.
const std::string& FileOf(const CommandLine& commandLine) {
  const bool saves = !commandLine.settingsFileToSave.empty();
  return saves ? commandLine.settingsFileToSave : commandLine.settings.inputFile;
}

// False, with the user told, where what was printed has not all arrived.
bool FlushStandardOutput() {
  if (std::fflush(stdout) == 0 && std::ferror(stdout) == 0) return true;
  std::fputs("quorvel-cli: An error occurred when writing to standard output.\n", stderr);
  return false;
}

int Run(const CommandLine& commandLine) try {
  TerminalInterface ui(commandLine.answerPolicy, commandLine.quiet, commandLine.settings.inputFile);
  Session session(ui, OptionsOf(commandLine, ui));
  session.Settings() = commandLine.settings;
  if (!commandLine.settingsFile.empty()) session.KeepSettingsFile(commandLine.settingsFile);
  StopOnSignals();
  int status = 1;
  session.Enter(FileOf(commandLine), [&] { status = RunOnce(commandLine, session, ui); });
  if (ui.ResultFailed()) {
    ui.Say("An error occurred when writing to standard output.");
    return 1;
  }
  return status;
} catch (const std::bad_alloc&) {
  // There was none for the session's own message either.
  const char* const file = FileOf(commandLine).c_str();
  SayNoMemory(&file, *file == '\0' ? 0 : 1);
  return 1;
}

}  // namespace
}  // namespace quorvel

int main(int argumentCount, char** arguments) try {
  quorvel::HoldStandardStreams();
  quorvel::LetOversizedWritesFail();
  quorvel::PrepareTerminal();
  quorvel::TakeMemoryInLargeSteps();
  const quorvel::CommandLine commandLine =
      quorvel::ReadCommandLine(quorvel::ProgramArguments(argumentCount, arguments));
  if (!commandLine.exitStatus) return quorvel::Run(commandLine);
  return quorvel::FlushStandardOutput() ? *commandLine.exitStatus : 1;
} catch (const quorvel::EndRequested& request) {
  quorvel::EndBySignal(request.signal);
} catch (const std::bad_alloc&) {
  // Which of the arguments is the file is not known yet.
  quorvel::SayNoMemory(arguments + 1, static_cast<std::size_t>(std::max(argumentCount, 1) - 1));
  return 1;
} catch (const std::exception& error) {
  std::fprintf(stderr, "quorvel-cli: %s\n",  // NOLINT(*-vararg)
               quorvel::VisibleName(error.what()).c_str());
  return 1;
}
