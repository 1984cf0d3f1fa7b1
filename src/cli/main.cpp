// quorvel-cli: the concordance of one document, for scripts and batches.

#include <cstdio>
#include <exception>
#include <new>

#include "cli/options.h"
#include "cli/platform.h"
#include "cli/terminal_interface.h"
#include "cli/word_lists.h"
#include "files/output_file.h"
#include "run/session.h"

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

int SaveSettings(Session& session, const std::string& path, TerminalInterface& ui) {
  const std::optional<std::string> errorText = session.SaveSettings(path);
  if (errorText && errorText->empty()) return 0;
  if (errorText) ui.Say(path + ": " + *errorText);
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
  if (report.fileFault) ui.Say(report.fileFault->file + ": " + report.fileFault->reason);
  if (!languageKnown && report.written) SayLanguageUnknown(settings, ui);
  return !report.fileFault;
}

SessionOptions OptionsOf(const CommandLine& commandLine) {
  SessionOptions options;
  options.outputFormat = commandLine.format;
  options.encodingChoice = commandLine.encodingChoice;
  options.listsOnce = true;
  if (commandLine.toStandardOutput) {
    LetStandardOutputBeBytes();
    options.outputSink = WriteToStandardOutput;
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

int Run(const CommandLine& commandLine) {
  TerminalInterface ui(commandLine.answerPolicy, commandLine.quiet, commandLine.settings.inputFile);
  Session session(ui, OptionsOf(commandLine));
  session.Settings() = commandLine.settings;
  if (!commandLine.settingsFile.empty()) session.KeepSettingsFile(commandLine.settingsFile);
  StopOnSignals();
  int status = 1;
  session.Enter([&] { status = RunOnce(commandLine, session, ui); });
  if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0) {
    ui.Say("An error occurred when writing to standard output.");
    return 1;
  }
  return status;
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
} catch (const std::bad_alloc&) {
  std::fputs("quorvel-cli: There is not enough memory.\n", stderr);
  return 1;
} catch (const std::exception& error) {
  std::fprintf(stderr, "quorvel-cli: %s\n", error.what());  // NOLINT(*-vararg)
  return 1;
}
