// Parses the command line.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "cli/terminal_interface.h"
#include "lines/line_order.h"
#include "run/input_check.h"
#include "run/listing_run.h"
#include "settings/settings.h"
#include "util/text_form.h"
#include "util/worker_pool.h"

namespace quorvel {

struct CommandLine {
  ConcordanceSettings settings;
  // Several documents or folders. A single document is in `settings` instead.
  std::vector<std::string> inputs;
  // The document is read from standard input. Its path in `settings` says only which kind it is.
  bool readsStandardInput = false;
  bool listsBesideInputs = false;  // otherwise the results of all documents are joined
  unsigned jobs = Processors();    // the number of documents that are processed in parallel
  EncodingChoice encodingChoice = EncodingChoice::adoptDetected;
  std::string language;  // of the stop words; empty to use the file in the settings
  bool useIndex = false;
  std::string settingsFile;        // that the settings come from, if any
  std::string settingsFileToSave;  // if set, the settings are saved and nothing is run
  OutputFormat format = OutputFormat::text;
  LineKey rowOrder = LineKey::place;  // used for rows
  std::string pictureFile;            // if set, a picture of the listed words is written to it
  bool toStandardOutput = false;
  std::optional<Coding> outputCoding;  // of the written text; empty for the default
  std::optional<AnswerPolicy> answerPolicy;
  bool quiet = false;

  // Set when nothing is to be run: 0 after the help was shown, 1 when the settings file could not
  // be used, 2 for wrong usage.
  std::optional<int> exitStatus;
};

// Returns the command line for one of several documents. If documents are not listed beside the
// inputs, its output is standard output.
[[nodiscard]] CommandLine ForDocument(const CommandLine& commandLine, const std::string& path);

// Parses the arguments of the program, without its name. Prints the help or error messages.
[[nodiscard]] CommandLine ReadCommandLine(const std::vector<std::string>& arguments);

}  // namespace quorvel
