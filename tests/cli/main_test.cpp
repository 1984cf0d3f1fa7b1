#include <gtest/gtest.h>

#include <cstdlib>

#include "naive/places.h"
#include "support/made_texts.h"
#include "support/platform.h"
#include "support/run_program.h"

namespace quorvel {
namespace {

// The text on standard error, with LF line ends.
std::string Said(const TestFolder& folder) { return naive::Replace(folder.Read("err"), "\r", ""); }

TEST(CommandLine, AnswersWithItsStatusAndMessages) {
  const std::tuple<std::string, int, const char*> rows[] = {
      {"a.txt -o no/x.txt", 1,
       "quorvel-cli: a.txt: An error occurred when creating concordance file.\n"
       "quorvel-cli: a.txt: no/x.txt: No such file or directory\n"},
      {"a.txt --create -k no.txt -e dog", 0, ""},
      {"i.txt --index", 1, "quorvel-cli: i.txt: i.qvl.ndx: Is a directory\n"},
      {"-q", 1, "quorvel-cli: Input file not specified.\n"},
      {"a.log", 1,
       "quorvel-cli: a.log: This program acts only on text files, Word DOCX files and HTML "
       "files.\n"},
      {"pipe.txt", 1, "quorvel-cli: File pipe.txt is a device or a pipe, not a file.\n"},
      {"a.txt -k pipe.txt", 1,
       "quorvel-cli: a.txt: File pipe.txt cannot be opened (permission denied).\n"},
      {"a.txt -e dog -o /dev/full", 1,
       "quorvel-cli: a.txt: An error occurred when creating search results file.\n"
       "quorvel-cli: a.txt: /dev/full: No space left on device\n"},
      {"a.txt --picture a.txt", 1,
       "quorvel-cli: a.txt: The picture cannot be the same as the input file.\n"},
      {"a.txt -o - --index --picture a.qvl.ndx", 1,
       "quorvel-cli: a.txt: The picture cannot be the same as the index file.\n"},
      {"a.txt -q --picture no/p", 1, "quorvel-cli: a.txt: no/p: No such file or directory\n"},
      {"a.txt -q -e sea --picture p", 3,
       "quorvel-cli: a.txt: No words satisfying the conditions were found.\n"},
      {"a.txt -q -e cat --picture p", 0, ""},
  };
  const std::string text = "the cat and the dog\r\n";
  for (const auto& [arguments, status, errors] : rows) {
    SCOPED_TRACE(arguments);
    const TestFolder folder;
    for (const char* file : {"a.txt", "a.log", "i.txt"}) (void)folder.Write(file, text);
    std::filesystem::create_directory(folder.Path("i.qvl.ndx"));
    const bool wantsDevice =
        arguments.find("pipe") < arguments.size() || arguments.find("/dev/") < arguments.size();
    if (ON_WINDOWS && wantsDevice) continue;
    ASSERT_TRUE(ON_WINDOWS ||
                std::system(("mkfifo '" + folder.Path("pipe.txt") + "'").c_str()) == 0);
    EXPECT_EQ(RunProgram(folder, QUORVEL_CLI, arguments), status);
    EXPECT_EQ(Said(folder), errors);
    EXPECT_EQ(folder.Read("a.txt"), text);
    const std::string picture = folder.Read("p");
    EXPECT_EQ(picture.find("<title>a.txt</title>") < picture.find(">cat</text>"), !picture.empty());
    EXPECT_EQ(picture.ends_with("</svg>\n"), arguments.find("cat --picture") < arguments.size());
  }
}

#ifndef _WIN32
TEST(CommandLine, TellsOfStreamsThatTakeNothing) {
  const std::string lost = "An error occurred when writing to standard output.\n";
  const std::tuple<const char*, int, std::string, const char*> rows[] = {
      {"a.txt -e dog -o o <&- >&- 2>&- #", 0, "", "Input file: a.txt\r\n"},
      {"a.txt -k no.txt -o o 2>&- #", 1, "", "old"},
      {"a.txt -q -o - >&- 2>err #", 1, "quorvel-cli: a.txt: " + lost, "old"},
      {"--help >/dev/full 2>err #", 1, "quorvel-cli: " + lost, "old"},
  };
  for (const auto& [arguments, status, said, begin] : rows) {
    SCOPED_TRACE(arguments);
    const TestFolder folder;
    (void)folder.Write("a.txt", "the cat and the dog\r\n");
    for (const char* name : {"o", "err"}) (void)folder.Write(name, name[1] == '\0' ? "old" : "");
    EXPECT_EQ(RunProgram(folder, QUORVEL_CLI, arguments), status);
    EXPECT_EQ(Said(folder), said);
    EXPECT_TRUE(folder.Read("o").starts_with(begin)) << folder.Read("o");
    EXPECT_EQ(folder.Read("o").find("quorvel-cli"), std::string::npos);
  }
}

TEST(CommandLine, TakesASizeLimitForAFullDisk) {
  const TestFolder folder;
  (void)folder.Write("a.txt", Repeated("the cat and the dog\r\n", 100));
  (void)folder.Write("a.qvl.conc.txt", "old");
  EXPECT_EQ(
      RunProgram(folder, QUORVEL_CLI, "a.txt --no-frequencies --language none", "ulimit -f 1;"), 1);
  EXPECT_TRUE(Said(folder).ends_with("quorvel-cli: a.txt: a.qvl.conc.txt: File too large\n"));
  EXPECT_EQ(folder.Read("a.qvl.conc.txt"), "old");
}
#endif

TEST(CommandLine, ListsWhatIsAskedFor) {
  const std::pair<const char*, std::string> rows[] = {
      {"-o -", "\n\ncaf\u00e9 2\n\n"},
      {"-o - --encoding utf-8 --answer no", "\n\ncaf\u00e9 2\n\n"},
      {"-o - --encoding ansi", "\n\ncaf\u00c3 2\n\n"},
      {"-o - --encoding ansi --answer yes", "\n\ncaf\u00e9 2\n\n"},
      {"-o - --encoding ansi --answer default", "\n\ncaf\u00c3 2\n\n"},
      {"-e c* --output-encoding windows-1252", "\r\n\r\ncaf\xE9 2\r\n\r\n"},
      {"-o o", "\r\n\r\ncaf\xE9 2\r\n\r\n"},
      {"-o o --output-encoding utf-8", "\r\n\r\ncaf\u00e9 2\r\n\r\n"}};
  const TestFolder folder;
  // "café" with an accent in UTF-8, and a dash that shows that it is UTF-8.
  const std::string name = "u \u00e9.txt";
  (void)folder.Write(name, "caf\u00e9 \u2014 caf\u00e9\r\n");
  for (const auto& [arguments, words] : rows) {
    EXPECT_EQ(RunProgram(folder, QUORVEL_CLI, "'" + name + "' -c 0 " + arguments), 0);
    const std::string found = folder.Read(arguments[3] == 'o' ? "o" : "out");
    EXPECT_TRUE(found.ends_with(words)) << arguments << found;
    const bool isUtf8 = words.find('\xC3') < words.size();
    EXPECT_TRUE(found.starts_with(isUtf8 ? "Input file: " + name : "Input file: u \xE9.txt"));
  }
}

TEST(CommandLine, TellsOfCharactersThatItLoses) {
  const std::string many =
      "1,200 characters are not in Windows-1252; --encoding unicode keeps them\n";
  const std::string one = "1 character is not in Windows-1252; --encoding unicode keeps it\n";
  const std::tuple<std::string, const char*, std::string> rows[] = {
      {"\u2014 c\u0153ur coeur", "", one},
      {Repeated("\u0416\u0436\u2014 word ", 600), " -q", many},
      {"\u00e9 caf\u00e9 \xFF", " --encoding unicode",
       "1 invalid byte sequence was replaced by U+FFFD\n"},
      {"caf\u00e9 \u2014", "", ""}};
  for (const auto& [text, options, said] : rows) {
    const TestFolder folder;
    (void)folder.Write("u.txt", text);
    (void)RunProgram(folder, QUORVEL_CLI, std::string("u.txt --language none") + options);
    EXPECT_EQ(Said(folder), said.empty() ? "" : "quorvel-cli: u.txt: " + said);
  }
}

TEST(CommandLine, WritesRowsWhereTheyAreWanted) {
  const TestFolder folder;
  (void)folder.Write("a.txt", "of the caf\xE9 to us it is so\r\n");
  const std::string tsv =
      "word\tkey\tcount\tleft\tmatch\tright\tposition\n"
      "caf\xC3\xA9\tcafe\t1\tthe \tcaf\xC3\xA9\t to\t8\n";
  const std::pair<const char*, const char*> rows[] = {{"-o -", "out"},
                                                      {"-e caf?", "out"},
                                                      {"-e caf? -o y.z", "y.z"},
                                                      {"-s s.lvz", "a.qvl.conc.tsv"}};
  EXPECT_EQ(RunProgram(folder, QUORVEL_CLI, "a.txt --format json"), 0);
  EXPECT_TRUE(folder.Read("a.qvl.conc.json").starts_with("[\n{\"word\":"));
  EXPECT_EQ(RunProgram(folder, QUORVEL_CLI, "a.txt -c 1 -o l.txt --save-settings s.lvz"), 0);
  for (const auto& [options, file] : rows) {
    SCOPED_TRACE(options);
    (void)folder.Write("l.txt", "a listing");
    (void)folder.Write("a.qvl.conc.tsv", "old");
    EXPECT_EQ(RunProgram(folder, QUORVEL_CLI, std::string("a.txt -c 1 --format tsv ") + options),
              0);
    EXPECT_EQ(folder.Read(file), tsv);
    EXPECT_EQ(folder.Read("l.txt"), "a listing");
    EXPECT_EQ(folder.Read("out"), std::string(file) == "out" ? tsv : "");
  }
}

TEST(CommandLine, TellsWhichWordsOccurTooOften) {
  const TestFolder folder;
  (void)folder.Write("a.txt", Repeated("dog ", 32768));
  const std::string said =
      "quorvel-cli: a.txt: The word \"dog\" occurs 32768 times; a word that occurs more than 32767 "
      "times cannot be listed.";
  EXPECT_EQ(RunProgram(folder, QUORVEL_CLI, "a.txt -e dog"), 1);
  EXPECT_EQ(Said(folder),
            said + "\nquorvel-cli: a.txt: The rows of --format tsv have no such limit.\n");
  EXPECT_EQ(RunProgram(folder, QUORVEL_CLI, "a.txt"), 1);
  EXPECT_EQ(Said(folder), said + " Add it to the stop words.\n");
}

}  // namespace
}  // namespace quorvel
