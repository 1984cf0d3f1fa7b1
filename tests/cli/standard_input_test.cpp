// The built program reads a document from standard input.

#include <gtest/gtest.h>

#ifndef _WIN32
#include <csignal>

#include "support/run_program.h"
#include "support/test_folder.h"

namespace quorvel {
namespace {

// The messages of the program and then its listing of standard input, which a shell command
// provides.
std::string ListedOf(const TestFolder& desk, const std::string& arguments, int status) {
  const std::string line = "timeout 60 '" QUORVEL_CLI "' -c 0 --format " + arguments;
  EXPECT_EQ(RunProgram(desk, "sh", "-c \"" + line + "\""), status) << arguments;
  return desk.Read("err") + desk.Read("out");
}

TEST(StandardInput, IsListedToStandardOutput) {
  const std::string kept =
      "quorvel-cli: standard input: The concordance file cannot be the same as the input file.\n";
  const std::string table = "word\tkey\tcount\ncat\tcat\t1\n";
  const std::tuple<std::string, int, std::string> rows[] = {
      {"text - < a.txt | head -n 1", 0, "Input file: standard input\n"},
      {"tsv - < a.txt", 0, table + "dog\tdog\t1\n"},
      // The input may arrive in pieces, and slowly.
      {"tsv - -e '?a?' < pipe & (cat a.txt; sleep 0.3; echo day) > pipe; wait", 0,
       table + "day\tday\t1\n"},
      {"tsv -s s.lvz - < a.txt", 0, table + "dog\tdog\t1\n"},
      {"tsv - --input-type html < page", 0, table},
      {"tsv - --input-type html < a.txt", 0, table + "dog\tdog\t1\n"},
      {"tsv - --input-type odt < a.txt", 1,
       "quorvel-cli: standard input: This program acts only on text files, Word DOCX files and "
       "HTML files.\n"},
      {"tsv - < .", 1, "quorvel-cli: standard input: Is a directory when reading input file.\n"},
      {"tsv - -o a.txt < a.txt", 1, kept},
      {"tsv - < a.txt >> a.txt", 1, kept},
  };
  for (const auto& [arguments, status, listed] : rows) {
    const TestFolder desk;
    (void)desk.Write("a.txt", "the cat and the dog\r\n");
    (void)desk.Write("page", "<!DOCTYPE html><html><head></head><body>the <b>cat</b></body>");
    EXPECT_EQ(RunProgram(desk, QUORVEL_CLI, "b.txt -o o.txt --index --save-settings s.lvz"), 0);
    EXPECT_EQ(RunProgram(desk, "mkfifo", "pipe"), 0);
    EXPECT_EQ(ListedOf(desk, arguments, status), listed) << arguments;
    std::filesystem::remove(desk.Path("pipe"));
    EXPECT_EQ(desk.Files().size(), 3U) << arguments;
  }
}

// Every question gets its default answer, also at a terminal, where Ctrl-D ends the document.
TEST(StandardInput, IsNoPlaceForAnswers) {
  const TestFolder desk;
  (void)desk.Write("u", "caf\u00e9 \u2014 caf\u00e9\r\nyes\r\n");
  EXPECT_TRUE(ListedOf(desk, "tsv - --encoding ansi < u", 0).ends_with("caf\u00c3\tcafa\t2\n"));
  // A signal ends the program while it waits for input.
  const std::string ended =
      "sleep 3 | '" QUORVEL_CLI "' - & run=\\$!; sleep 0.3; kill -TERM \\$run; wait \\$run";
  EXPECT_EQ(RunProgram(desk, "sh", "-c \"" + ended + "\""), 128 + SIGTERM);
  const std::string typed =
      "printf 'the cat\\n\\004' | script -q -e -c '" QUORVEL_CLI " - -e c* --format tsv' shown";
  EXPECT_EQ(RunProgram(desk, "sh", "-c \"" + typed + "\""), 0);
  EXPECT_NE(desk.Read("shown").find("cat\tcat\t1"), std::string::npos) << desk.Read("shown");
}

}  // namespace
}  // namespace quorvel
#endif
