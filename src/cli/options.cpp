#include "cli/options.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <functional>
#include <iostream>
#include <map>
#include <sstream>
#include <string_view>
#include <variant>
#include <vector>

#include "cli/exit_status.h"
#include "cli/standard_input.h"
#include "files/file_system.h"
#include "files/path_names.h"
#include "lists/languages.h"
#include "output/concordance_file.h"
#include "settings/option_table.h"
#include "settings/settings_file.h"
#include "util/ascii.h"
#include "util/visible_text.h"

namespace quorvel {
namespace {

constexpr const char* DESCRIPTION =
    "Makes a key-word-in-context concordance of a document: lists every word and\n"
    "shows each occurrence between the words around it. A search lists only the\n"
    "words that you name.\n";

constexpr const char* EXIT_STATUS =
    "Exit status: 0 done, 1 refused or failed, 2 wrong usage, 3 no words found,\n"
    "130 stopped.";

enum class Encoding { detected, utf8, ansi, unicode };

constexpr std::size_t DESCRIPTIONS = 29;  // the column at which descriptions begin

// Breaks a long line of the help at blanks, to the width of a terminal.
std::string BrokenLine(std::string line) {
  constexpr std::size_t WIDTH = 79;
  std::string result;
  while (line.size() > WIDTH) {
    const std::size_t end = line.rfind(' ', WIDTH);
    result.append(line, 0, end).append("\n");
    line.replace(0, end + 1, DESCRIPTIONS, ' ');
  }
  return result.append(line).append("\n");
}

// "--[no-]hyphens" for "--hyphens,--no-hyphens{false}".
void JoinFlags(std::string& line) {
  const std::size_t comma = line.find(",--no-");
  if (comma == std::string::npos) return;
  line.erase(comma, line.find('}', comma) + 1 - comma);
  line.insert(line.find("--") + 2, "[no-]");
  const std::size_t end = line.find(' ', 2);
  if (end == std::string::npos) return;
  line.replace(end, line.find_first_not_of(' ', end) - end, DESCRIPTIONS - end, ' ');
}

// The help text of the library, with each pair of flags on one line, and long lines broken.
std::string HelpText(const CLI::App& app) {
  app.get_formatter()->column_width(DESCRIPTIONS);
  std::istringstream lines(app.help());
  std::string help;
  for (std::string line; std::getline(lines, line);) {
    if (line.empty() && help.ends_with("\n\n")) continue;
    JoinFlags(line);
    // The library puts the description of a long option name on the next line.
    std::string description;
    if (line.starts_with("  -") && line.find("  ", 2) == std::string::npos) {
      std::getline(lines, description);
      line.resize(DESCRIPTIONS, ' ');
    }
    help += BrokenLine(line.append(TrimBlanks(description)));
  }
  return help;
}

// Options that do not correspond to a single field.
struct RawOptions {
  std::vector<std::string> inputs;
  std::string inputType = "txt";
  std::string outputFile;
  Encoding encoding = Encoding::detected;
  int minCount = 0;
  int jobs = 0;
  bool search = false;
  bool create = false;
  bool noKeywordsFile = false;
  std::string settingsFile;
  AnswerPolicy answer = AnswerPolicy::preset;
};

// The library's own look-up ends the program when memory runs out.
CLI::Option* Find(CLI::App& app, std::string_view name) {
  const auto hasName = [&name](const CLI::Option* option) {
    return option->check_name(std::string(name));
  };
  const std::vector<CLI::Option*> options = app.get_options();
  return *std::ranges::find_if(options, hasName);
}

// A name must not be blank, because blanks around names are dropped.
std::string NameFault(const std::string& given) {
  return TrimBlanks(given).empty() ? "a file name is needed" : "";
}

std::string FolderFault(const std::string& given) {
  return FolderExists(given) ? given + " is a folder" : "";
}

// Where the values of the options go that are not fields of the settings. A function takes the
// place of a word in the list of words.
using OwnFields =
    std::map<std::string_view, std::variant<bool*, int*, std::string*, std::function<void(int)>>>;

template <typename Value>
std::function<void(int)> ChosenFor(Value& field) {
  return [&field](int place) { field = static_cast<Value>(place); };
}

OwnFields FieldsOf(CommandLine& commandLine, RawOptions& raw) {
  return {
      {"--input-type", &raw.inputType},
      {"--output", &raw.outputFile},
      {"--format", ChosenFor(commandLine.format)},
      {"--sort", ChosenFor(commandLine.rowOrder)},
      {"--picture", &commandLine.pictureFile},
      {"--settings", &raw.settingsFile},
      {"--save-settings", &commandLine.settingsFileToSave},
      {"--use-index", &commandLine.useIndex},
      {"--jobs", &raw.jobs},
      {"--encoding", ChosenFor(raw.encoding)},
      {"--output-encoding",
       [&commandLine](int place) { commandLine.outputCoding = static_cast<Coding>(place); }},
      {"--create", &raw.create},
      {"--search", &raw.search},
      {"--no-keywords-file", &raw.noKeywordsFile},
      {"--min-count", &raw.minCount},
      {"--language", &commandLine.language},
      {"--answer", ChosenFor(raw.answer)},
      {"--quiet", &commandLine.quiet},
  };
}

// Adds an option of the table to the library's.
struct OptionAdder {
  CLI::App& app;
  const Option& option;
  ConcordanceSettings& settings;
  const OwnFields& own;

  template <typename Value>
  [[nodiscard]] Value& Field(Value ConcordanceSettings::*field) const {
    return field != nullptr ? settings.*field : *std::get<Value*>(own.at(LongName(option)));
  }
  [[nodiscard]] std::string Names() const { return std::string(option.names); }
  [[nodiscard]] std::string Help() const { return std::string(option.help); }

  void operator()(const Flag& flag) const {
    const std::string off = flag.isPair ? ",!--no-" + Names().substr(2) : "";
    CLI::Option* const added = app.add_flag(Names() + off, Field(flag.field), Help());
    if (!flag.isPair) added->option_text(" ");
    if (!option.excludes.empty()) added->excludes(Find(app, option.excludes));
  }
  void operator()(const Number& number) const {
    app.add_option(Names(), Field(number.field), Help())
        ->option_text(std::string(number.argument))
        ->check(CLI::Range(number.least, number.most));
  }
  // Stores the word itself, or its place among the words.
  [[nodiscard]] std::function<void(const std::string&)> Taker(
      const Word& word, const std::vector<std::string>& words) const {
    auto target =
        word.field == nullptr ? own.at(LongName(option)) : ChosenFor(settings.*word.field);
    return [words, target](const std::string& given) {
      if (const auto* const text = std::get_if<std::string*>(&target)) {
        **text = given;
      } else {
        std::get<std::function<void(int)>>(target)(
            static_cast<int>(std::ranges::find(words, given) - words.begin()));
      }
    };
  }
  void operator()(const Word& word) const {
    const std::vector<std::string> words = CLI::detail::split(std::string(word.words), ' ');
    std::vector<std::string> shown = words;
    if (word.areSortedInErrors) std::ranges::sort(shown);
    app.add_option_function<std::string>(Names(), Taker(word, words), Help())
        ->option_text("WORD")
        ->check(CLI::IsMember(shown));
  }
  void operator()(const Text& text) const {
    app.add_option(Names(), Field(text.field), Help())->option_text("TEXT");
  }
  void operator()(const File& file) const {
    CLI::Option* const added = app.add_option(Names(), Field(file.field), Help());
    added->option_text("FILE")->check(NameFault);
    if (file.isRead) added->check(FolderFault);
  }
  void operator()(const ModeLines& /*kind*/) const {}
  void operator()(const Shown& /*kind*/) const {
    if (LongName(option) == "--help") {
      app.set_help_flag(Names(), Help());
    } else {
      app.set_version_flag(Names(), "quorvel-cli " + VersionText(), Help());
    }
  }
};

void AddOptions(CLI::App& app, CommandLine& commandLine, RawOptions& raw) {
  app.add_option("INPUT", raw.inputs,
                 "the document: a text file, a web page or a DOCX document; \"-\" for standard "
                 "input, which is listed to standard output. Several documents or a folder: each "
                 "listing is written beside its document")
      ->option_text(" ")
      ->check(NameFault)
      ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
  const OwnFields own = FieldsOf(commandLine, raw);
  for (const Option& option : AllOptions()) {
    if (option.names.empty()) continue;
    app.option_defaults()->group(std::string(option.group));
    std::visit(OptionAdder{app, option, commandLine.settings, own}, option.kind);
  }
}

// The default output file: the file beside the input for its concordance or rows.
std::string NameBesideInput(const CommandLine& commandLine) {
  const std::string& input = commandLine.settings.inputFile;
  if (commandLine.format == OutputFormat::text) return DefaultConcordanceFileName(input);
  return DefaultRowsFileName(input, commandLine.format == OutputFormat::json ? "json" : "tsv");
}

// The listing's file in a settings file does not apply to rows.
void ApplyRowsOutput(const std::string& outputFile, CommandLine& commandLine) {
  ConcordanceSettings& settings = commandLine.settings;
  const bool search = settings.mode == Mode::search;
  std::string target = outputFile == "-" ? "" : outputFile;
  if (outputFile.empty() && !search) target = NameBesideInput(commandLine);
  commandLine.toStandardOutput = target.empty();
  (search ? settings.searchResultsFile : settings.outputFile) = target;
}

// How often an option was given.
std::size_t CountOf(CLI::App& app, const std::string& name) { return Find(app, name)->count(); }

// Stores the output option in the field for the mode.
void ApplyOutputOption(CLI::App& app, const std::string& outputFile, CommandLine& commandLine) {
  if (commandLine.format != OutputFormat::text) return ApplyRowsOutput(outputFile, commandLine);
  ConcordanceSettings& settings = commandLine.settings;
  const bool search = settings.mode == Mode::search;
  std::string& target = search ? settings.searchResultsFile : settings.outputFile;
  if (!outputFile.empty()) {
    settings.outputToFileDisabled = false;
    target = outputFile == "-" ? "" : outputFile;
  } else if (!search && !settings.inputFile.empty() &&
             (target.empty() || CountOf(app, "INPUT") > 0)) {
    // A concordance file in a settings file belongs to the input in that file.
    target = NameBesideInput(commandLine);
  }
  commandLine.toStandardOutput = outputFile == "-" || (search && target.empty());
}

bool NamesInputLanguage(const ConcordanceSettings& settings) {
  return settings.stopWordsFile == INPUT_LANGUAGE_FILE && !FileExists(settings.stopWordsFile);
}

// Without options for stop words, the language of the input is used, unless a settings file says
// otherwise. The settings file may also name the language of the input.
void ApplyStopWordOptions(CLI::App& app, const RawOptions& raw, CommandLine& commandLine) {
  if (CountOf(app, "--stop-words") > 0) {
    commandLine.language.clear();
  } else if (CountOf(app, "--language") > 0) {
    commandLine.settings.stopWordsFile.clear();
  } else if (raw.settingsFile.empty() || NamesInputLanguage(commandLine.settings)) {
    commandLine.settings.stopWordsFile.clear();
    commandLine.language = "auto";
  }
}

bool HoldStandardInput(const std::vector<std::string>& inputs) {
  return std::ranges::find(inputs, "-") != inputs.end();
}

// Standard input is not a file: it has no index file beside it, and settings cannot name it.
void CheckInputs(CLI::App& app, const RawOptions& raw, const CommandLine& commandLine) {
  if (!HoldStandardInput(raw.inputs)) {
    if (CountOf(app, "--input-type") == 0) return;
    throw CLI::ValidationError("--input-type", "only for standard input, the document \"-\"");
  }
  if (raw.inputs.size() > 1) {
    throw CLI::ValidationError("INPUT", "standard input cannot be combined with other documents");
  }
  if (commandLine.useIndex ||
      (CountOf(app, "--index") > 0 && commandLine.settings.createIndexFile)) {
    throw CLI::ValidationError(commandLine.useIndex ? "--use-index" : "--index",
                               "standard input has no index file");
  }
  if (CountOf(app, "--save-settings") > 0) {
    throw CLI::ValidationError("--save-settings", "a settings file cannot name standard input");
  }
}

void CheckPicture(CLI::App& app, const CommandLine& commandLine) {
  if (commandLine.pictureFile.empty()) return;
  if (commandLine.pictureFile == "-") {
    throw CLI::ValidationError("--picture", "standard output is used for the listing");
  }
  if (CountOf(app, "--save-settings") > 0) {
    throw CLI::ValidationError("--save-settings", "a settings file does not store --picture");
  }
}

void CheckOrderOfRows(const CommandLine& commandLine) {
  if (commandLine.rowOrder == LineKey::place) return;
  if (commandLine.format == OutputFormat::text) {
    throw CLI::ValidationError("--sort", "only with --format tsv or json");
  }
  if (commandLine.settings.contextSize == 0) {
    throw CLI::ValidationError("--sort", "with --context 0 each row is a word without a position");
  }
}

// Refuses combinations of options that make no sense.
void CheckOptions(CLI::App& app, const RawOptions& raw, const CommandLine& commandLine) {
  CheckInputs(app, raw, commandLine);
  CheckPicture(app, commandLine);
  CheckOrderOfRows(commandLine);
  if (commandLine.format == OutputFormat::text) return;
  if (CountOf(app, "--frequencies") > 0 && !commandLine.settings.showFrequencies) {
    throw CLI::ValidationError("--no-frequencies", "only with --format text");
  }
  if (commandLine.outputCoding == Coding::windows1252) {
    throw CLI::ValidationError("--output-encoding", "the rows of --format are UTF-8");
  }
  if (CountOf(app, "--save-settings") > 0) {
    throw CLI::ValidationError("--save-settings", "a settings file does not store --format");
  }
}

// With standard input as the document, nobody can answer questions, and there is no default output
// file.
void ApplyStandardInput(RawOptions& raw, CommandLine& commandLine) {
  commandLine.readsStandardInput = true;
  commandLine.settings.inputFile = std::string(STANDARD_INPUT) + "." + raw.inputType;
  commandLine.settings.createIndexFile = false;
  commandLine.answerPolicy = AnswerPolicy::preset;
  if (raw.outputFile.empty()) raw.outputFile = "-";
}

// Stores a single document in the settings. Several documents replace one that a settings file
// names.
void ApplyInputs(RawOptions& raw, CommandLine& commandLine) {
  const std::vector<std::string>& inputs = raw.inputs;
  if (HoldStandardInput(inputs)) {
    ApplyStandardInput(raw, commandLine);
  } else if (inputs.size() > 1 || (inputs.size() == 1 && FolderExists(inputs.front()))) {
    commandLine.inputs = inputs;
    commandLine.settings.inputFile.clear();
  } else if (!inputs.empty()) {
    commandLine.settings.inputFile = inputs.front();
  }
}

// The texts of several documents cannot be written to one file, but rows can.
void ApplyToSeveral(const std::string& outputFile, CommandLine& commandLine) {
  const bool search = commandLine.settings.mode == Mode::search;
  commandLine.listsBesideInputs = outputFile.empty() && !search;
  const bool oneWay = commandLine.listsBesideInputs || commandLine.toStandardOutput;
  if (commandLine.format == OutputFormat::text && !oneWay) {
    throw CLI::ValidationError(outputFile.empty() ? "--settings" : "--output",
                               "the listings of several documents cannot be written to one file; "
                               "use --format tsv");
  }
  if (!commandLine.settingsFileToSave.empty()) {
    throw CLI::ValidationError("--save-settings", "only with a single document");
  }
  if (!commandLine.pictureFile.empty()) {
    throw CLI::ValidationError("--picture", "only with a single document");
  }
}

void ApplyRawOptions(CLI::App& app, RawOptions& raw, CommandLine& commandLine) {
  ConcordanceSettings& settings = commandLine.settings;
  ApplyInputs(raw, commandLine);
  const bool keywordsGiven = CountOf(app, "-k") + CountOf(app, "-e") > 0;
  if (raw.search || (keywordsGiven && !raw.create)) settings.mode = Mode::search;
  if (raw.create) settings.mode = Mode::create;
  if (raw.noKeywordsFile) settings.keywordsFile.clear();
  ApplyStopWordOptions(app, raw, commandLine);
  ApplyOutputOption(app, raw.outputFile, commandLine);
  if (raw.encoding != Encoding::detected) commandLine.encodingChoice = EncodingChoice::confirm;
  if (!commandLine.inputs.empty()) ApplyToSeveral(raw.outputFile, commandLine);
  settings.inputIsUtf8 = raw.encoding == Encoding::utf8;
  if (raw.encoding == Encoding::unicode) settings.reading = Reading::unicode;
  if (CountOf(app, "--min-count") > 0) {
    settings.ignoreInfrequentWords = raw.minCount >= SMALLEST_THRESHOLD;
    if (settings.ignoreInfrequentWords) settings.thresholdFrequency = raw.minCount;
  }
  if (raw.jobs > 0) commandLine.jobs = static_cast<unsigned>(raw.jobs);
  if (CountOf(app, "--answer") > 0) commandLine.answerPolicy = raw.answer;
}

// The arguments in the form that the library expects, in reverse order. For "--name=" without a
// value the library would take the next argument as the value, so an empty value is added.
std::vector<std::string> ForLibrary(const std::vector<std::string>& arguments) {
  std::vector<std::string> result;
  bool areOptions = true;
  for (const std::string& argument : arguments) {
    areOptions = areOptions && argument != "--";
    const bool lacksValue = areOptions && argument.starts_with("--") && argument.ends_with('=');
    result.push_back(lacksValue ? argument.substr(0, argument.size() - 1) : argument);
    if (lacksValue) result.emplace_back();
  }
  std::reverse(result.begin(), result.end());
  return result;
}

// Parses the arguments into `commandLine`, which may already contain settings.
void Parse(const std::vector<std::string>& arguments, CommandLine& commandLine, RawOptions& raw) {
  CLI::App app(DESCRIPTION, "quorvel-cli");
  // On Windows, "/" also begins paths.
  app.allow_windows_style_options(false);
  app.footer(EXIT_STATUS);
  // Options from a user's alias can be overridden.
  app.option_defaults()->multi_option_policy(CLI::MultiOptionPolicy::TakeLast);
  AddOptions(app, commandLine, raw);
  try {
    app.parse(ForLibrary(arguments));
    CheckOptions(app, raw, commandLine);
    ApplyRawOptions(app, raw, commandLine);
  } catch (const CLI::CallForHelp&) {
    std::cout << HelpText(app);
    commandLine.exitStatus = 0;
  } catch (const CLI::CallForVersion& version) {
    std::cout << version.what() << '\n';
    commandLine.exitStatus = 0;
  } catch (const CLI::ParseError& error) {
    std::cerr << "quorvel-cli: " << VisibleName(error.what())
              << "\nSee quorvel-cli --help for the options.\n";
    commandLine.exitStatus = exit_status::WRONG_USAGE;
  }
}

}  // namespace

CommandLine ForDocument(const CommandLine& commandLine, const std::string& path) {
  CommandLine one = commandLine;
  one.settings.inputFile = path;
  one.toStandardOutput = !commandLine.listsBesideInputs;
  if (commandLine.listsBesideInputs) one.settings.outputFile = NameBesideInput(one);
  return one;
}

CommandLine ReadCommandLine(const std::vector<std::string>& arguments) {
  CommandLine commandLine;
  if (arguments.empty()) {
    std::cerr << "Usage: quorvel-cli [OPTIONS] INPUT\nSee quorvel-cli --help for the options.\n";
    commandLine.exitStatus = exit_status::WRONG_USAGE;
    return commandLine;
  }
  RawOptions raw;
  Parse(arguments, commandLine, raw);
  if (commandLine.exitStatus || raw.settingsFile.empty()) return commandLine;
  CommandLine withSettings;
  withSettings.settingsFile = raw.settingsFile;
  const RestoredState restored = RestoreSavedState(withSettings.settings, raw.settingsFile, false);
  if (!restored.errorText.empty()) {
    std::cerr << "quorvel-cli: " << VisibleName(raw.settingsFile) << ": " << restored.errorText
              << '\n';
    withSettings.exitStatus = exit_status::FAILED;
    return withSettings;
  }
  raw = {};
  Parse(arguments, withSettings, raw);
  return withSettings;
}

}  // namespace quorvel
