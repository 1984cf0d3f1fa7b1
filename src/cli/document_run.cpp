#include "cli/document_run.h"

#include <utility>

#include "cli/exit_status.h"
#include "cli/platform.h"
#include "cli/standard_input.h"
#include "cli/word_lists.h"
#include "run/fault_texts.h"
#include "run/session.h"
#include "util/visible_text.h"

namespace quorvel {
namespace {

int ExitStatusOf(RunOutcome outcome) {
  switch (outcome) {
    case RunOutcome::done:
      return 0;
    case RunOutcome::nothingFound:
      return exit_status::NOTHING_FOUND;
    case RunOutcome::stopped:
      return exit_status::STOPPED;
    default:
      return exit_status::FAILED;
  }
}

void SayLanguageUnknown(const ConcordanceSettings& settings, TerminalInterface& ui) {
  ui.Say("The language of " + VisibleName(settings.inputFile) +
         " could not be recognized; English stop words are used.");
}

// For the language "auto" the choice itself is saved, not the stop-words file of this input,
// because the settings will be used for other inputs.
int SaveSettings(const CommandLine& commandLine, Session& session, TerminalInterface& ui) {
  const std::string& path = commandLine.settingsFileToSave;
  std::string& stopWordsFile = session.Settings().stopWordsFile;
  if (commandLine.language == "auto") stopWordsFile = INPUT_LANGUAGE_FILE;
  (void)SettleStopWordsFile(commandLine.language, session);
  const std::optional<std::string> errorText = session.SaveSettings(path);
  if (errorText && errorText->empty()) return 0;
  if (errorText) ui.SayOf(path, *errorText);
  return exit_status::FAILED;
}

int SayUnread(const Fault& fault, TerminalInterface& ui) {
  if (fault.kind == FaultKind::stopped) return exit_status::STOPPED;
  ui.Ask(MessageOf(fault));
  return exit_status::FAILED;
}

// Reports on the files of a run what the core does not report. Returns false when a requested file
// was not written.
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
  // The core does not report a search file that it cannot write.
  const bool isSilent = settings.mode == Mode::search && format == OutputFormat::text;
  const bool listingFailed = outcome == RunOutcome::failed && report.fileFault;
  if (listingFailed && isSilent) ui.Say(WritingFailed(settings.mode));
  if (report.fileFault) ui.SayOf(report.fileFault->file, report.fileFault->reason);
  if (!languageKnown && report.written) SayLanguageUnknown(settings, ui);
  return !report.fileFault;
}

// Standard output is read by terminals and other programs, which expect UTF-8 with LF line ends. A
// file keeps the form in which it is composed, unless another encoding is requested.
std::optional<TextForm> FormOf(const CommandLine& commandLine) {
  const bool isShown = commandLine.toStandardOutput;
  if (!isShown && !commandLine.outputCoding) return std::nullopt;
  const Coding coding = commandLine.outputCoding.value_or(Coding::utf8);
  return TextForm{coding, !isShown || coding == Coding::windows1252};
}

SessionOptions OptionsOf(const CommandLine& commandLine, const ByteSink& result,
                         const std::string& resultPath) {
  SessionOptions options;
  options.outputFormat = commandLine.format;
  options.rowOrder = {.key = commandLine.rowOrder};
  options.pictureFile = commandLine.pictureFile;
  options.encodingChoice = commandLine.encodingChoice;
  options.listsOnce = true;
  // Devices are allowed: a user in a shell can interrupt a write that nobody reads.
  options.targets = Targets::all;
  if (commandLine.toStandardOutput) {
    options.outputSink = result;
    options.sinkPath = resultPath;
    options.rowsNameInput = !commandLine.inputs.empty();
  }
  options.form = FormOf(commandLine);
  return options;
}

int RunOnce(const CommandLine& commandLine, Session& session, TerminalInterface& ui) {
  if (!commandLine.settingsFileToSave.empty()) return SaveSettings(commandLine, session, ui);
  const bool languageKnown =
      session.Settings().mode != Mode::create || SettleStopWordsFile(commandLine.language, session);
  // Checked before a word list is read: if standard output is redirected to that list, the shell
  // has already emptied it.
  if (!session.CheckOutputs()) return ExitStatusOf(RunOutcome::refused);
  // For the default "auto" the loaded list is not worth a message.
  if (!LoadWordLists(session, commandLine.language != "auto", ui)) {
    return ExitStatusOf(ui.StopRequested() ? RunOutcome::stopped : RunOutcome::refused);
  }
  if (commandLine.useIndex) session.UseIndexFile();
  const RunOutcome outcome = session.RunConcordance();
  const bool filesWritten = ReportFiles(session, outcome, commandLine.format, languageKnown, ui);
  const int status = ExitStatusOf(outcome);
  return status == 0 && !filesWritten ? exit_status::FAILED : status;
}

}  // namespace

const std::string& FileOf(const CommandLine& commandLine) {
  static const std::string standardInput = STANDARD_INPUT;  // made while there is memory
  if (commandLine.readsStandardInput) return standardInput;
  const bool saves = !commandLine.settingsFileToSave.empty();
  return saves ? commandLine.settingsFileToSave : commandLine.settings.inputFile;
}

int RunDocument(const CommandLine& commandLine, const ByteSink& result,
                const std::string& resultPath, TerminalInterface& ui,
                std::shared_ptr<const LanguagesByWord> languages) {
  SessionOptions options = OptionsOf(commandLine, result, resultPath);
  options.languages = std::move(languages);
  if (commandLine.readsStandardInput) {
    Result<InputBytes> input = ReadStandardInput(commandLine.settings.inputFile, ui);
    if (!input) return SayUnread(input.Error(), ui);
    options.input = GivenInput{*std::move(input), STANDARD_INPUT, FilePathOf(Stream::input)};
  }
  Session session(ui, std::move(options));
  session.Settings() = commandLine.settings;
  if (!commandLine.settingsFile.empty()) session.KeepSettingsFile(commandLine.settingsFile);
  int status = exit_status::FAILED;
  session.Enter(FileOf(commandLine), [&] { status = RunOnce(commandLine, session, ui); });
  return status;
}

}  // namespace quorvel
