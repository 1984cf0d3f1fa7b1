// What the command line asks for.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "cli/terminal_interface.h"
#include "lines/line_order.h"
#include "run/input_check.h"
#include "run/listing_run.h"
#include "settings/settings.h"
#include "util/piece_makers.h"
#include "util/text_form.h"

namespace quorvel {

struct CommandLine {
  ConcordanceSettings settings;
  // The documents and folders, where they are not one document alone: that stands in the settings.
  std::vector<std::string> inputs;
  // The document comes by standard input; its path in the settings tells its kind alone.
  bool readsStandardInput = false;
  bool listsBesideInputs = false;  // each of them; else what is listed of all goes one way
  unsigned jobs = Processors();    // how many of them are worked on at once
  EncodingChoice encodingChoice = EncodingChoice::adoptDetected;
  std::string language;  // whose stop words; empty: of the file that the settings name
  bool useIndex = false;
  std::string settingsFile;        // that the settings come from, if any
  std::string settingsFileToSave;  // where set, the settings are saved and nothing is run
  OutputFormat format = OutputFormat::text;
  LineKey rowOrder = LineKey::place;  // of the rows of a format that is not text
  std::string pictureFile;            // where set, the words found are drawn, each with its places
  bool toStandardOutput = false;
  std::optional<Coding> outputCoding;  // of the text that is written; empty: as is usual there
  std::optional<AnswerPolicy> answerPolicy;
  bool quiet = false;

  // Set when nothing is to be run: the help was shown (0), the settings file could not be
  // used (1) or the usage is wrong (2).
  std::optional<int> exitStatus;
};

// What is asked for one document of several. Where these are not listed beside themselves, it is as
// if each were listed to standard output.
[[nodiscard]] CommandLine ForDocument(const CommandLine& commandLine, const std::string& path);

// Reads the arguments of the program, without its name; prints the help or what is wrong with them.
[[nodiscard]] CommandLine ReadCommandLine(const std::vector<std::string>& arguments);

}  // namespace quorvel
