#include "cli/options.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <iostream>
#include <map>
#include <sstream>
#include <string_view>
#include <vector>

#include "cli/exit_status.h"
#include "cli/standard_input.h"
#include "files/file_system.h"
#include "files/path_names.h"
#include "lists/languages.h"
#include "output/concordance_file.h"
#include "settings/settings_file.h"
#include "util/ansi.h"
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

constexpr int MOST_JOBS = 64;

enum class Encoding { detected, utf8, ansi, unicode };

// Adds an option whose argument is one of a few words, each with a value.
template <typename Value>
void AddChoice(CLI::App& app, const std::string& name, const std::map<std::string, Value>& choices,
               Value& target, const std::string& description) {
  std::vector<std::string> words;
  words.reserve(choices.size());
  for (const auto& choice : choices) words.push_back(choice.first);
  app.add_option_function<std::string>(
         name, [choices, &target](const std::string& word) { target = choices.at(word); },
         description)
      ->option_text("WORD")
      ->check(CLI::IsMember(words));
}

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
  bool search = false;
  bool create = false;
  bool noKeywordsFile = false;
  std::string settingsFile;
  AnswerPolicy answer = AnswerPolicy::preset;
};

// Adds an option for file names. A name must not be blank, because blanks around names are dropped.
template <typename Names>
CLI::Option& AddFileNames(CLI::App& app, const std::string& name, Names& names,
                          const std::string& description) {
  const auto fault = [](const std::string& given) {
    return std::string(TrimBlanks(given).empty() ? "a file name is needed" : "");
  };
  return *app.add_option(name, names, description)->option_text("FILE")->check(fault);
}

CLI::Option& AddFile(CLI::App& app, const std::string& name, std::string& path,
                     const std::string& description) {
  return AddFileNames(app, name, path, description);
}

// Adds an option for a file that is read.
CLI::Option& AddSource(CLI::App& app, const std::string& name, std::string& path,
                       const std::string& description) {
  return *AddFile(app, name, path, description).check([](const std::string& given) {
    return FolderExists(given) ? given + " is a folder" : std::string();
  });
}

void AddFileOptions(CLI::App& app, CommandLine& commandLine, RawOptions& raw) {
  AddFileNames(app, "INPUT", raw.inputs,
               "the document: a text file, a web page or a DOCX document; \"-\" for standard "
               "input, which is listed to standard output. Several documents or a folder: each "
               "listing is written beside its document")
      .option_text(" ")
      ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
  AddChoice<std::string>(
      app, "--input-type",
      {{"txt", "txt"}, {"html", "html"}, {"docx", "docx"}, {"odt", "odt"}, {"epub", "epub"}},
      raw.inputType, "the type of standard input: txt, html, docx, odt or epub. Default: txt");
  AddFile(app, "-o,--output", raw.outputFile,
          "the concordance or search-results file; \"-\" for standard output. Default: for a "
          "concordance the input with the extension qvl.conc.txt (with --format qvl.conc.tsv or "
          "qvl.conc.json); for a search standard output");
  AddChoice<OutputFormat>(
      app, "--format",
      {{"text", OutputFormat::text}, {"tsv", OutputFormat::tsv}, {"json", OutputFormat::json}},
      commandLine.format,
      "text: the concordance; tsv or json: one row for each occurrence, for other programs, with "
      "word, folded key, count, left context, match, right context and position, in UTF-8. "
      "Default: text");
  AddChoice<LineKey>(app, "--sort",
                     {{"place", LineKey::place},
                      {"right", LineKey::right},
                      {"left", LineKey::left},
                      {"match", LineKey::match}},
                     commandLine.rowOrder,
                     "order all rows of --format by the right context, the left context or the "
                     "match. Default: place, the order of the listing, each word in the order of "
                     "the text");
  AddFile(app, "--picture", commandLine.pictureFile,
          "write an SVG picture of where in the document each word occurs");
  AddFile(app, "-s,--settings", raw.settingsFile,
          "start from a settings file, such as one that the window saved; all other options "
          "override it");
  AddFile(app, "--save-settings", commandLine.settingsFileToSave,
          "save the settings and other options in a settings file, and exit");
  app.add_flag("--index,!--no-index", commandLine.settings.createIndexFile,
               "write the words of the input to an index file beside it. Default: no");
  app.add_flag("--use-index", commandLine.useIndex,
               "read the words from the index file if it matches the input. Default: no")
      ->option_text(" ");
  app.add_option("-j,--jobs", commandLine.jobs,
                 "process this many documents at once, 1 to 64. Default: the number of processors")
      ->option_text("COUNT")
      ->check(CLI::Range(1, MOST_JOBS));
  AddChoice<Encoding>(
      app, "--encoding",
      {{"auto", Encoding::detected},
       {"utf-8", Encoding::utf8},
       {"ansi", Encoding::ansi},
       {"unicode", Encoding::unicode}},
      raw.encoding,
      "auto, utf-8 or ansi keep the characters of Windows-1252; unicode keeps all characters and "
      "writes UTF-8. Default: auto, which uses what is detected");
  app.add_flag("--notes", commandLine.settings.notes,
               "with --encoding unicode list the notes of a word-processor document too")
      ->option_text(" ");
  AddChoice<std::optional<Coding>>(
      app, "--output-encoding", {{"windows-1252", Coding::windows1252}, {"utf-8", Coding::utf8}},
      commandLine.outputCoding,
      "windows-1252 or utf-8, for the concordance and the search results. Default: windows-1252 "
      "for "
      "a file, but utf-8 with --encoding unicode; for standard output utf-8 with LF line ends. The "
      "rows of --format are always UTF-8");
}

void AddSearchOptions(CLI::App& app, ConcordanceSettings& settings, RawOptions& raw) {
  auto* create = app.add_flag("--create", raw.create, "list all words. Default without keywords")
                     ->option_text(" ");
  app.add_flag("--search", raw.search, "list keywords only. Default with -k or -e")
      ->option_text(" ")
      ->excludes(create);
  auto& file =
      AddSource(app, "-k,--keywords-file", settings.keywordsFile, "a file of words to search for");
  app.add_flag("--no-keywords-file", raw.noKeywordsFile,
               "ignore the keywords file that the settings file names")
      ->option_text(" ")
      ->excludes(&file);
  app.add_option(
         "-e,--keywords", settings.extraKeywords,
         "words to search for, separated by blanks: * stands for any characters, ? for one, "
         "# for a digit; WORD+OTHER finds WORD with OTHER in its context")
      ->option_text("TEXT");
}

void AddListingOptions(CLI::App& app, ConcordanceSettings& settings) {
  app.add_option("-c,--context", settings.contextSize,
                 "words of context on each side, 0 to 9; 0 for a bare word list. Default: 5")
      ->option_text("N")
      ->check(CLI::Range(0, LARGEST_CONTEXT_SIZE));
  AddChoice<WordOrder>(
      app, "--order",
      {{"alphabetical", WordOrder::alphabetical}, {"frequency", WordOrder::byFrequency}},
      settings.wordOrder, "alphabetical or frequency. Default: alphabetical");
  app.add_flag("--frequencies,!--no-frequencies", settings.showFrequencies,
               "show how often words and contexts occur. Default: yes");
  app.add_flag("--line-breaks,!--no-line-breaks", settings.showLineBreaks,
               "show the line breaks of a text file as \" / \". Default: no");
}

// The values of --language.
std::vector<std::string> LanguageWords() {
  std::vector<std::string> words = {"auto", "none", std::string(ALL_LANGUAGES.code)};
  for (const Language& language : LANGUAGES) words.emplace_back(language.code);
  return words;
}

void AddWordOptions(CLI::App& app, CommandLine& commandLine, RawOptions& raw) {
  ConcordanceSettings& settings = commandLine.settings;
  app.add_flag("--hyphens,!--no-hyphens", settings.allowWordsWithHyphens,
               "list words with hyphens. Default: yes");
  app.add_flag("--numerals,!--no-numerals", settings.allowWordsWithNumerals,
               "list words with digits. Default: no");
  app.add_flag("--skip-lists,!--no-skip-lists", settings.ignoreLists,
               "leave out the lists of a web page. Default: no");
  app.add_option("--min-count", raw.minCount,
                 "list only words that occur at least N times, 1 to 20. Default: 1")
      ->option_text("N")
      ->check(CLI::Range(1, LARGEST_THRESHOLD));
  AddSource(app, "--stop-words", settings.stopWordsFile, "a file of words not to list");
  app.add_option(
         "--language", commandLine.language,
         "the language of the stop words not to list: en, de, es, pt, it, fr, all, none, or auto "
         "for the language of the input. --stop-words replaces it. Default: auto")
      ->option_text("WORD")
      ->check(CLI::IsMember(LanguageWords()));
  app.add_option("--extra-stop-words", settings.extraStopWords,
                 "words not to list, separated by blanks")
      ->option_text("TEXT");
}

void AddDialogOptions(CLI::App& app, CommandLine& commandLine, RawOptions& raw) {
  AddChoice<AnswerPolicy>(
      app, "--answer",
      {{"yes", AnswerPolicy::yes}, {"no", AnswerPolicy::no}, {"default", AnswerPolicy::preset}},
      raw.answer,
      "how questions are answered: yes, no or default. Without it, questions are asked on a "
      "terminal; otherwise the default answer is taken");
  app.add_flag("-q,--quiet", commandLine.quiet, "show no progress and no message on success");
  app.set_version_flag("-V,--version", "quorvel-cli " + VersionText(), "show the version");
  app.set_help_flag("-h,--help", "show this help");
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

// How often an option was given. The library's own look-up ends the program when memory runs out.
std::size_t CountOf(const CLI::App& app, const std::string& name) {
  for (const CLI::Option* option : app.get_options()) {
    if (option->check_name(name)) return option->count();
  }
  return 0;
}

// Stores the output option in the field for the mode.
void ApplyOutputOption(const CLI::App& app, const std::string& outputFile,
                       CommandLine& commandLine) {
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
void ApplyStopWordOptions(const CLI::App& app, const RawOptions& raw, CommandLine& commandLine) {
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
void CheckInputs(const CLI::App& app, const RawOptions& raw, const CommandLine& commandLine) {
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

void CheckPicture(const CLI::App& app, const CommandLine& commandLine) {
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
void CheckOptions(const CLI::App& app, const RawOptions& raw, const CommandLine& commandLine) {
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

// Stores a single document in the settings.
void ApplyInputs(RawOptions& raw, CommandLine& commandLine) {
  const std::vector<std::string>& inputs = raw.inputs;
  if (HoldStandardInput(inputs)) {
    ApplyStandardInput(raw, commandLine);
  } else if (inputs.size() > 1 || (inputs.size() == 1 && FolderExists(inputs.front()))) {
    commandLine.inputs = inputs;
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

void ApplyRawOptions(const CLI::App& app, RawOptions& raw, CommandLine& commandLine) {
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
  const auto inGroup = [&app](const char* group) { app.option_defaults()->group(group); };
  inGroup("Files");
  AddFileOptions(app, commandLine, raw);
  inGroup("Search");
  AddSearchOptions(app, commandLine.settings, raw);
  inGroup("Listing");
  AddListingOptions(app, commandLine.settings);
  inGroup("Words");
  AddWordOptions(app, commandLine, raw);
  inGroup("Messages");
  AddDialogOptions(app, commandLine, raw);
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
