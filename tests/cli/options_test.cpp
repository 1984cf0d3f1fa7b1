// How each option changes the settings, which --save-settings writes; and wrong usage.

#include <gtest/gtest.h>

#include <sstream>

#include "lists/languages.h"
#include "naive/places.h"
#include "output/concordance_file.h"
#include "settings/option_table.h"
#include "support/run_program.h"

namespace quorvel {
namespace {

// The numbered lines of a settings file that differ from `base`.
std::string Changes(const std::string& settings, const std::string& base) {
  std::istringstream lines(naive::Replace(settings, "\r", ""));
  std::istringstream baseLines(naive::Replace(base, "\r", ""));
  std::string changes;
  std::string old;
  int number = 0;
  for (std::string line; std::getline(lines, line) && std::getline(baseLines, old);) {
    ++number;
    if (line != old) changes += std::to_string(number) + ": " + line + "\n";
  }
  return changes;
}

std::string Saved(const TestFolder& folder, const std::string& arguments) {
  EXPECT_EQ(RunProgram(folder, QUORVEL_CLI, arguments + " --save-settings saved"), 0)
      << arguments << folder.Read("err");
  EXPECT_EQ(folder.Read("err") + folder.Read("out"), "") << arguments;
  return folder.Read("saved");
}

constexpr const char* DEFAULTS =
    "\"a.txt\"\r\n\"\"\r\n\"\"\r\n\"a.qvl.conc.txt\"\r\n1\r\n0\r\n\"\"\r\n0\r\n0\r\n0\r\n1\r\n0\r\n"
    "0\r\n0\r\n1\r\n0\r\n0\r\n5\r\n\"\"\r\n\"\"\r\n0\r\n0\r\n";

// Each option alone, and the option that reverses it.
TEST(Options, ChangeTheSettings) {
  const TestFolder folder;
  for (const char* name : {"a.txt", "k", "w", "r"}) (void)folder.Write(name, "the cat\r\n");
  const char* const rows[][3] = {
      {"-o o", "4: \"o\"\n"},
      {"--search", "4: \"\"\n5: 0\n6: 1\n"},
      {"--keywords-file k --keywords x --output r",
       "2: \"r\"\n3: \"k\"\n4: \"\"\n5: 0\n6: 1\n20: \"x\"\n"},
      {"-k k --create", "3: \"k\"\n", "--no-keywords-file"},
      {"--extra-stop-words 'a b'", "7: \"a b\"\n"},
      {"--min-count 20", "8: 18\n9: 1\n"},
      {"--min-count 2", "9: 1\n", "--min-count 1"},
      {"--skip-lists", "10: 1\n", "--no-skip-lists"},
      {"--no-hyphens", "11: 0\n", "--hyphens"},
      {"--numerals", "12: 1\n", "--no-numerals"},
      {"--no-frequencies", "15: 0\n", "--frequencies"},
      {"--line-breaks", "16: 1\n", "--no-line-breaks"},
      {"--order frequency", "17: 1\n", "--order alphabetical"},
      {"--context 9", "18: 9\n", "-c 5"},
      {"--stop-words w", "19: \"w\"\n", "--language none"},
      {"--language auto", "19: \"stwds_auto.txt\"\n", "--language none"},
      {"--index", "21: 1\n", "--no-index"},
  };
  for (const auto& [options, changes, takesBack] : rows) {
    const bool namesStopWords = std::string_view(options).starts_with("--stop-words");
    const std::string language = namesStopWords ? "" : " --language none ";
    const std::string saved = Saved(folder, "a.txt " + language + options);
    EXPECT_EQ(Changes(saved, DEFAULTS), changes) << options;
    EXPECT_EQ(Changes(Saved(folder, "-s saved"), saved), "") << options << " from settings";
    if (takesBack == nullptr) continue;
    EXPECT_EQ(Changes(Saved(folder, std::string("-s saved ") + takesBack), DEFAULTS), "");
  }
}

TEST(Options, GoOnFromASettingsFile) {
  const TestFolder folder;
  for (const char* name : {"a.txt", "b.txt", "k", "r"}) (void)folder.Write(name, "the cat\r\n");
  const std::string concordance = Saved(folder, "a.txt -o o -k k --create --language none");
  const std::string search = Saved(folder, "a.txt -o r -k k");
  const std::string disabled = concordance.substr(0, concordance.size() - 3) + "1\r\n";
  const std::string nameless = naive::Replace(concordance, "\"o\"", "\"\"");
  const std::tuple<std::string, const char*, const char*> rows[] = {
      {concordance, "b.txt", "1: \"b.txt\"\n4: \"b.qvl.conc.txt\"\n"},
      {concordance, "--output -", "4: \"\"\n"},
      {concordance, "-o q -o p", "4: \"p\"\n"},
      {nameless, "", "4: \"a.qvl.conc.txt\"\n"},
      {disabled, "-o p", "4: \"p\"\n22: 0\n"},
      {search, "b.txt -o p", "1: \"b.txt\"\n2: \"p\"\n"},
      {search, "--create", "4: \"a.qvl.conc.txt\"\n5: 1\n6: 0\n"}};
  for (const auto& [from, options, changes] : rows) {
    (void)folder.Write("s.lvz", from);
    EXPECT_EQ(Changes(Saved(folder, std::string("-s s.lvz ") + options), from), changes) << options;
  }
}

TEST(Options, RefuseWrongUsage) {
  const std::pair<std::string, std::string> rows[] = {
      {"a.txt --search --create", "--create excludes --search"},
      {"a.txt --format tsv --no-frequencies", "--no-frequencies: only with --format text"},
      {"a.txt --sort right", "--sort: only with --format tsv or json"},
      {"a.txt --sort left --format tsv -c 0",
       "--sort: with --context 0 each row is a word without a position"},
      {"a.txt --picture -", "--picture: standard output is used for the listing"},
      {"a.txt a.txt --picture p", "--picture: only with a single document"},
      {"a.txt --picture p --save-settings s",
       "--save-settings: a settings file does not store --picture"},
      {"a.txt --format tsv --save-settings s",
       "--save-settings: a settings file does not store --format"},
      {"a.txt --format json --output-encoding windows-1252",
       "--output-encoding: the rows of --format are UTF-8"},
      {"a.txt -", "INPUT: standard input cannot be combined with other documents"},
      {"- --index", "--index: standard input has no index file"},
      {"- --use-index", "--use-index: standard input has no index file"},
      {"- --save-settings s", "--save-settings: a settings file cannot name standard input"},
      {"a.txt --input-type html", "--input-type: only for standard input, the document \"-\""},
      {"a.txt --order 1", "--order: 1 not in {alphabetical,frequency}"},
      {"a.txt --language x", "--language: x not in {auto,none,all,en,de,es,pt,it,fr}"},
      {"a.txt -c 10", "--context: Value 10 not in range 0 to 9"},
      {"a.txt --min-count 21", "--min-count: Value 21 not in range 1 to 20"},
      {"a.txt --jobs 65", "--jobs: Value 65 not in range 1 to 64"},
      {"a.txt -k x --no-keywords-file", "--keywords-file excludes --no-keywords-file"},
      {"a.txt --stop-words .", "--stop-words: . is a folder"},
      {"''", "INPUT: a file name is needed"},
      {"a.txt -e dog -o ' '", "--output: a file name is needed"},
      {"a.txt --save-settings=", "--save-settings: a file name is needed"},
  };
  const TestFolder folder;
  (void)folder.Write("a.txt", "the cat and the dog\r\n");
  for (const auto& [arguments, reason] : rows) {
    EXPECT_EQ(RunProgram(folder, QUORVEL_CLI, arguments), 2) << arguments;
    EXPECT_EQ(naive::Replace(folder.Read("err"), "\r\n", "\n"),
              "quorvel-cli: " + reason + "\nSee quorvel-cli --help for the options.\n");
    EXPECT_EQ(folder.Files().size(), 1U);
  }
}

TEST(Options, TellOfThemselves) {
  const TestFolder folder;
  EXPECT_EQ(RunProgram(folder, QUORVEL_CLI, "--help"), 0);
  const std::string help = naive::Replace(folder.Read("out"), "\r\n", "\n");
  EXPECT_TRUE(help.starts_with("Makes a key-word-in-context concordance of a document: "));
  EXPECT_TRUE(
      help.ends_with("\n\nExit status: 0 done, 1 refused or failed, 2 wrong usage, 3 no words "
                     "found,\n130 stopped.\n"));
  EXPECT_NE(
      help.find("  -c,--context N             words of context on each side, 0 to 9; 0 for a\n"
                "                             bare word list. Default: 5\n"),
      std::string::npos);
  EXPECT_NE(help.find("\n  --[no-]hyphens             list words with hyphens. "),
            std::string::npos);
  EXPECT_EQ(help.find("\n\n\n"), std::string::npos);
  std::string groups;
  std::size_t longest = 0;
  std::istringstream lines(help);
  for (std::string line; std::getline(lines, line);) {
    if (line.ends_with(':') && !line.starts_with(' ')) groups += line;
    longest = std::max(longest, line.size());
    if (!line.starts_with("  -")) continue;
    EXPECT_TRUE(line.at(28) == ' ' && line.at(29) != ' ') << line;
  }
  EXPECT_EQ(longest, 79U) << "fills a terminal of 80 columns";
  EXPECT_EQ(groups, "Positionals:Files:Search:Listing:Words:Messages:");
  EXPECT_EQ(RunProgram(folder, QUORVEL_CLI, "-V"), 0);
  EXPECT_TRUE(folder.Read("out").starts_with("quorvel-cli " + VersionText()));
  EXPECT_EQ(RunProgram(folder, QUORVEL_CLI, ""), 2);
  EXPECT_TRUE(folder.Read("err").starts_with("Usage: quorvel-cli [OPTIONS] INPUT"));
}

// The table of options lies below the list of languages and names them itself.
TEST(Options, NameAllLanguages) {
  std::string words = "auto none " + std::string(ALL_LANGUAGES.code);
  for (const Language& language : LANGUAGES) words.append(" ").append(language.code);
  const auto option = std::ranges::find(AllOptions(), "--language", &Option::names);
  EXPECT_EQ(std::get<Word>(option->kind).words, words);
}

}  // namespace
}  // namespace quorvel
