// quorvel-cli: makes concordances of one or several documents, for scripts and batch jobs.

#include <algorithm>
#include <cstdio>
#include <exception>
#include <new>

#include "cli/document_run.h"
#include "cli/documents_run.h"
#include "cli/options.h"
#include "cli/platform.h"
#include "cli/standard_input.h"
#include "cli/terminal_interface.h"
#include "files/output_file.h"
#include "util/visible_text.h"

namespace quorvel {
namespace {

// Returns false, and tells the user, when not all output could be written.
bool FlushStandardOutput() {
  if (std::fflush(stdout) == 0 && std::ferror(stdout) == 0) return true;
  std::fputs("quorvel-cli: An error occurred when writing to standard output.\n", stderr);
  return false;
}

int Run(const CommandLine& commandLine) try {
  TerminalInterface ui(commandLine.answerPolicy, commandLine.quiet, commandLine.settings.inputFile);
  StopOnSignals();
  const ByteSink result = [&ui](std::string_view bytes) { return ui.WriteResult(bytes); };
  if (commandLine.toStandardOutput) SetBinaryMode(Stream::output);
  if (commandLine.readsStandardInput) {
    SetBinaryMode(Stream::input);
    ui.CallInput(STANDARD_INPUT);
  }
  const std::string path = FilePathOf(Stream::output);
  const int status = commandLine.inputs.empty() ? RunDocument(commandLine, result, path, ui)
                                                : RunDocuments(commandLine, result, path, ui);
  if (ui.ResultFailed()) {
    ui.Say("An error occurred when writing to standard output.");
    return 1;
  }
  return status;
} catch (const std::bad_alloc&) {
  // There is not even memory for the session's own message.
  const char* const file = FileOf(commandLine).c_str();
  SayNoMemory(&file, *file == '\0' ? 0 : 1);
  return 1;
}

}  // namespace
}  // namespace quorvel

int main(int argumentCount, char** arguments) try {
  quorvel::OpenMissingStandardStreams();
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
  // The arguments are not parsed yet, so all of them are shown.
  quorvel::SayNoMemory(arguments + 1, static_cast<std::size_t>(std::max(argumentCount, 1) - 1));
  return 1;
} catch (const std::exception& error) {
  std::fprintf(stderr, "quorvel-cli: %s\n",  // NOLINT(*-vararg)
               quorvel::VisibleName(error.what()).c_str());
  return 1;
}
