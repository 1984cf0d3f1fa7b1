// A document that comes by standard input, to the built program.

#include <gtest/gtest.h>

#ifndef _WIN32
#include <fstream>

#include "support/run_program.h"
#include "support/test_folder.h"

namespace quorvel {
namespace {

// What the program lists of standard input, which a shell gives it: without the line of the date.
// What it says stands before that.
std::string ListedOf(const TestFolder& desk, const std::string& arguments, int status) {
  const std::string program = "timeout 60 '" QUORVEL_CLI "' -c 0 ";
  EXPECT_EQ(RunProgram(desk, "sh", "-c \"" + program + arguments + "\""), status) << arguments;
  std::string out = desk.Read("out");
  const std::size_t made = out.find("Concordance file created");
  if (made < out.size()) out.erase(made, out.find('\n', made) + 1 - made);
  return desk.Read("err") + out;
}

TEST(StandardInput, IsListedToStandardOutput) {
  const std::string header =
      "Input file: standard input\nMD5 message digest of input file: "
      "BD98C7E98FF936A8D5A9616930B0FAD0\n\n";
  const std::tuple<std::string, int, std::string> rows[] = {
      {"- < a.txt", 0, header + "cat 1\ndog 1\n\n"},
      {"- --format tsv < a.txt", 0, "word\tkey\tcount\ncat\tcat\t1\ndog\tdog\t1\n"},
      // It may come in pieces, and slowly.
      {"- --format tsv -e d* < pipe & (cat a.txt; sleep 0.3; echo day) > pipe; wait", 0,
       "word\tkey\tcount\nday\tday\t1\ndog\tdog\t1\n"},
      {"-s s.lvz - --format tsv < a.txt", 0, "word\tkey\tcount\ncat\tcat\t1\ndog\tdog\t1\n"},
      {"- --input-type html --format tsv < page", 0, "word\tkey\tcount\ncat\tcat\t1\n"},
      {"- --input-type html < head", 1,
       "quorvel-cli: standard input: This HTML file does not contain a HEAD section.\n"},
      {"- --input-type odt < a.txt", 1,
       "quorvel-cli: standard input: This program acts only on text files, Word DOCX files and "
       "HTML files.\n"},
      {"- < /dev/null", 1, "quorvel-cli: File standard input is zero-length.\n"},
      {"- < .", 1, "quorvel-cli: standard input: Is a directory when reading input file.\n"},
      {"- <&-", 1, "quorvel-cli: standard input: Bad file descriptor when reading input file.\n"},
      {"- -o a.txt < a.txt", 1,
       "quorvel-cli: standard input: The concordance file cannot be the same as the input "
       "file.\n"},
      {"- < a.txt >> a.txt", 1,
       "quorvel-cli: standard input: The concordance file cannot be the same as the input "
       "file.\n"},
  };
  for (const auto& [arguments, status, listed] : rows) {
    const TestFolder desk;
    (void)desk.Write("a.txt", "the cat and the dog\r\n");
    (void)desk.Write("page", "<!DOCTYPE html><html><head></head><body>the <b>cat</b></body>");
    (void)desk.Write("head", "<!DOCTYPE html><body>the cat</body>");
    EXPECT_EQ(RunProgram(desk, QUORVEL_CLI, "b.txt -o o.txt --index --save-settings s.lvz"), 0);
    EXPECT_EQ(RunProgram(desk, "mkfifo", "pipe"), 0);
    EXPECT_EQ(ListedOf(desk, arguments, status), listed) << arguments;
    EXPECT_EQ(desk.Read("a.txt"), "the cat and the dog\r\n");
    std::filesystem::remove(desk.Path("pipe"));
    EXPECT_EQ(desk.Files().size(), 4U) << arguments;
  }
}

// Each question has its default answer, at a terminal too.
TEST(StandardInput, IsNoPlaceForAnswers) {
  const TestFolder desk;
  (void)desk.Write("u", "caf\u00e9 \u2014 caf\u00e9\r\nyes\r\n");
  const std::string arguments = "- --encoding ansi --language none --format tsv ";
  EXPECT_TRUE(ListedOf(desk, arguments + "< u", 0).ends_with("caf\u00c3\tcafa\t2\nyes\tyes\t1\n"));
  EXPECT_TRUE(ListedOf(desk, arguments + "--answer yes < u", 0).find("\ncaf\u00e9\t") < 200);
  const TestFolder folder;
  const std::string typed =
      "printf 'the cat\\n\\004' | script -q -e -c '" QUORVEL_CLI " - -q -e c* --format tsv' shown";
  EXPECT_EQ(RunProgram(folder, "sh", "-c \"" + typed + "\""), 0);
  EXPECT_NE(folder.Read("shown").find("cat\tcat\t1"), std::string::npos) << folder.Read("shown");
}

}  // namespace
}  // namespace quorvel
#endif
