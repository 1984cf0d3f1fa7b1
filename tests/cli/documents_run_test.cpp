#include "cli/documents_run.h"

#include <gtest/gtest.h>

#include "naive/places.h"
#include "settings/settings_file.h"
#include "support/made_texts.h"
#include "support/platform.h"
#include "support/run_program.h"

namespace quorvel {
namespace {

// Replaces the separators and line ends of this system by "/" and LF.
std::string AsElsewhere(const std::string& text) {
  return ON_WINDOWS ? naive::Replace(naive::Replace(text, "\\", "/"), "\r", "") : text;
}

// A folder with documents in subfolders. One of them is too short to be read.
void FillDesk(const TestFolder& desk) {
  std::filesystem::create_directories(desk.Path("sub/html/empty"));
  (void)desk.Write("a.txt", "The old ship.\r\n");
  (void)desk.Write("b.txt", "A \"big\" house.\r\n");
  (void)desk.Write("sub/a.txt", "The old house.\r\n");
  (void)desk.Write("sub/a.docx", "bad");
  (void)desk.Write("old.tsv", "old");
  (void)desk.Write("sub/html/c.html", "The old ship of the house.\r\n");
  for (const char* other : {"logo.png", "x.odt", "old.qvl.conc.txt"}) {
    (void)desk.Write(std::string("sub/html/") + other, "The old ship.\r\n");
  }
}

TEST(DocumentsRun, TellsOfEachWhatIsWrongAndEndsWithTheWorst) {
  const std::string usage = "\nSee quorvel-cli --help for the options.\n";
  const std::string oneFile =
      ": the listings of several documents cannot be written to one file; use --format tsv" + usage;
  // The arguments, the exit status, the messages without the program's name, the new files.
  const std::tuple<std::string, int, std::string, std::string> rows[] = {
      {"a.txt b.txt ./a.txt sub/../b.txt", 0, "", "a.qvl.conc.txt b.qvl.conc.txt "},
      {"sub/a.txt none.txt b.txt --language none", 1, "File none.txt not found.\n",
       "b.qvl.conc.txt sub/a.qvl.conc.txt "},
      {"sub -q", 1,
       "sub/a.txt: sub/a.qvl.conc.txt is already the output for sub/a.docx.\nquorvel-cli: "
       "File sub/a.docx contains only from 1 to 4 bytes.\n",
       "sub/html/c.qvl.conc.txt "},
      {"a.txt b.txt -e ship", 3, "b.txt: No words satisfying the conditions were found.\n", ""},
      {"a.txt b.txt -o x.txt", 2, "--output" + oneFile, ""},
      {"a.txt b.txt --save-settings x.lvz", 2,
       "--save-settings: only with a single document" + usage, ""},
      {"a.txt b.txt --format tsv -o b.txt", 1,
       "The concordance file cannot be the same as the input file.\n", ""},
      {"a.txt b.txt --format tsv -o none/x.tsv", 1,
       "An error occurred when creating concordance file.\n"
       "quorvel-cli: none/x.tsv: No such file or directory\n",
       ""},
      {"a.txt -- --x= b.txt", 1,
       "--x=: This program acts only on text files, Word DOCX files and HTML files.\n",
       "a.qvl.conc.txt b.qvl.conc.txt "},
      {"sub/html/empty", 1,
       "sub/html/empty: There is no text file, web page or DOCX document in this folder.\n", ""},
  };
  for (const auto& [arguments, status, said, newFiles] : rows) {
    SCOPED_TRACE(arguments);
    const TestFolder desk;
    FillDesk(desk);
    const auto before = desk.Files();
    EXPECT_EQ(RunProgram(desk, QUORVEL_CLI, "-j 1 " + arguments), status);
    EXPECT_EQ(AsElsewhere(desk.Read("err")), said.empty() ? "" : "quorvel-cli: " + said);
    std::string files;
    for (const auto& [name, bytes] : desk.Files()) files += before.contains(name) ? "" : name + ' ';
    EXPECT_EQ(files, newFiles);
  }
}

// For any number of documents at a time, and although the first takes longest.
TEST(DocumentsRun, GivesAllInTheirOrder) {
  const TestFolder desk;
  std::string table = "file\tword\tkey\tcount\n";
  std::string names;
  for (int i = 0; i < 40; ++i) {
    const std::string name = std::to_string(100 + i) + ".txt";
    const int count = 40 * (40 - i);
    (void)desk.Write(name, Repeated("the ship ", count));
    names += name + ' ';
    table += name + "\tship\tship\t" + std::to_string(count) + "\n";
  }
  for (const char* jobs : {"1", "3", "64"}) {
    EXPECT_EQ(RunProgram(desk, QUORVEL_CLI, names + "-c 0 -e ship --format tsv -j " + jobs), 0);
    EXPECT_EQ(desk.Read("out"), table) << jobs;
  }
}

TEST(DocumentsRun, MakesOneTable) {
  const std::pair<std::string, const char*> rows[] = {
      {"--format tsv -c 1 -e 'house' sub/html b.txt",
       "file\tword\tkey\tcount\tleft\tmatch\tright\tposition\n"
       "sub/html/c.html\thouse\thouse\t1\tthe\thouse\t\t21\n"
       "b.txt\thouse\thouse\t1\t\"big\"\thouse\t\t9\n"},
      {"--format json -c 0 'x \"y\".txt' b.txt",
       "[\n{\"file\":\"x \\\"y\\\".txt\",\"word\":\"sea\",\"key\":\"sea\",\"count\":1},\n"
       "{\"file\":\"b.txt\",\"word\":\"big\",\"key\":\"big\",\"count\":1},\n"
       "{\"file\":\"b.txt\",\"word\":\"house\",\"key\":\"house\",\"count\":1}\n]\n"},
  };
  const TestFolder desk;
  FillDesk(desk);
  (void)desk.Write("x \"y\".txt", "The sea.\r\n");
  for (const auto& [arguments, table] : rows) {
    // No file name contains it there.
    if (ON_WINDOWS && arguments.find('"') != std::string::npos) continue;
    EXPECT_EQ(RunProgram(desk, QUORVEL_CLI, arguments + " -o -"), 0);
    EXPECT_EQ(AsElsewhere(desk.Read("out")), table);
    EXPECT_EQ(RunProgram(desk, QUORVEL_CLI, arguments + " -o all.rows"), 0);
    EXPECT_EQ(AsElsewhere(desk.Read("all.rows")), table);
  }
}

TEST(DocumentsRun, AsksBeforeItReplacesAFile) {
  const TestFolder desk;
  FillDesk(desk);
  ConcordanceSettings asking;
  asking.warnOnOverwrite = true;
  asking.inputFile = "sub/a.txt";
  EXPECT_EQ(SaveState(asking, desk.Path("ask.lvz"), {}), "");
  for (const bool yes : {false, true}) {
    const std::string answer = yes ? "yes" : "no";
    EXPECT_EQ(RunProgram(desk, QUORVEL_CLI,
                         "-s ask.lvz a.txt b.txt --format tsv -o old.tsv --answer " + answer),
              yes ? 0 : 1);
    EXPECT_EQ(AsElsewhere(desk.Read("err")),
              "quorvel-cli: A concordance file old.tsv already exists.  Do you wish to overwrite "
              "it?\n");
    EXPECT_EQ(desk.Read("old.tsv") == "old", !yes);
  }
}

}  // namespace
}  // namespace quorvel
