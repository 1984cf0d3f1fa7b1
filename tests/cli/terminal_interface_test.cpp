// The built program at a terminal: progress, questions and their answers, Ctrl-C.

#include <gtest/gtest.h>
#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>

#include "naive/places.h"
#include "support/platform.h"
#include "support/run_program.h"

namespace quorvel {
namespace {

// The output of a run at a terminal, without carriage returns at line ends, followed by the exit
// status. At each question the next of `keys` are typed.
std::string Transcript(const TestFolder& folder, const std::string& arguments,
                       std::vector<std::string> keys = {}) {
  int terminal = -1;
  const pid_t child = ::forkpty(&terminal, nullptr, nullptr, nullptr);
  if (child == 0) {
    std::signal(SIGINT, SIG_DFL);
    ::alarm(60);  // seconds; a longer run hangs
    const std::string line =
        "cd '" + folder.Path("") + "'; exec " QUORVEL_CLI " --language none " + arguments;
    ::execl("/bin/sh", "sh", "-c", line.c_str(), nullptr);
    ::_exit(127);
  }
  std::string shown;
  std::array<char, 4096> block;
  for (ssize_t got = 0; (got = ::read(terminal, block.data(), block.size())) > 0;) {
    shown.append(block.data(), static_cast<std::size_t>(got));
    if (!shown.ends_with("]? ") || keys.empty()) continue;
    EXPECT_GT(::write(terminal, keys.front().data(), keys.front().size()), 0);
    keys.erase(keys.begin());
  }
  ::close(terminal);
  int status = 0;
  ::waitpid(child, &status, 0);
  EXPECT_TRUE(keys.empty() && WIFEXITED(status)) << status << shown;
  return naive::Replace(shown, "\r\n", "\n") + std::to_string(WEXITSTATUS(status));
}

TEST(TerminalInterface, AsksUntilItHasAnAnswer) {
  const TestFolder folder;
  (void)folder.Write("u.txt", "caf\xC3\xA9 \xE2\x80\x94 caf\xC3\xA9\r\n");
  (void)folder.Write("a.txt", "the cat and the dog\r\n");
  (void)folder.Write(
      "s.lvz",
      "\"a.txt\"\r\n\"\"\r\n\"\"\r\n\"a.qvl.conc.txt\"\r\n1\r\n0\r\n\"\"\r\n0\r\n0\r\n"
      "0\r\n1\r\n0\r\n1\r\n0\r\n1\r\n0\r\n0\r\n0\r\n\"\"\r\n\"\"\r\n0\r\n0\r\n");
  const std::string encoding =
      "quorvel-cli: u.txt: This file seems to be UTF-8 encoded. Click 'Yes' to scan it as UTF-8 "
      "encoded or 'No' to scan it as ANSI.\nyes, no or cancel [no]? ";
  const std::string again = "\nyes, no or cancel [no]? ";
  const std::string exists =
      "quorvel-cli: a.txt: A concordance file a.qvl.conc.txt already exists.  Do you wish to "
      "overwrite it?\nyes or no [yes]? ";
  const std::string lost =
      "quorvel-cli: u.txt: 3 characters are not in Windows-1252; --encoding unicode keeps them\n";
  const char* const listing = "a.qvl.conc.txt";
  const std::string ansi = "u.txt -c 0 --encoding ansi -q -o ";
  (void)folder.Write("empty.txt", "");
  // The typed keys, the output, the written file, and the end of that file.
  const std::tuple<std::string, std::vector<std::string>, std::string, const char*, const char*>
      rows[] = {
          {ansi + "1", {"\n"}, encoding + "\n" + lost + "0", "1", "caf\xC3 2\r\n\r\n"},
          {ansi + "3",
           {"x\n", "Yes\n"},
           encoding + "x" + again + "Yes\n0",
           "3",
           "caf\xE9 2\r\n\r\n"},
          {ansi + "5", {"Cancel\n"}, encoding + "Cancel\n1", "5", ""},
          {ansi + "7", {"\3"}, encoding + "^C130", "7", ""},
          {"empty.txt -q -o 9", {}, "quorvel-cli: File empty.txt is zero-length.\n1", "9", ""},
          {"-s s.lvz -q", {"No\n"}, exists + "No\n0", listing, "old"},
          {"-s s.lvz -q",
           {"c\n", "y\n"},
           exists + "c\nyes or no [yes]? y\n0",
           listing,
           "the 2\r\n\r\n"},
      };
  for (const auto& [arguments, keys, shown, file, end] : rows) {
    (void)folder.Write(listing, "old");
    EXPECT_EQ(Transcript(folder, arguments, keys), shown);
    EXPECT_TRUE(folder.Read(file).ends_with(end)) << shown << folder.Read(file);
    EXPECT_EQ(folder.Read(file).empty(), *end == '\0') << shown;
  }
}

TEST(TerminalInterface, ShowsProgressUnlessItIsToBeQuiet) {
  const TestFolder folder;
  (void)folder.Write("a.txt", "the cat and the dog\r\n");
  const std::string bar =
      "\r[>                                        ]\r" + std::string(60, ' ') + "\r";
  EXPECT_EQ(Transcript(folder, "a.txt"),
            "Reading file ...\nCompacting spaces ...\nProcessing file ...\n" + bar +
                "Sorting ...\nApplying filters ...\nCounting words ...\n"
                "Ordering by frequency ...\nCreating concordance ...\n0");
  EXPECT_EQ(Transcript(folder, "a.txt -q"), "0");
  EXPECT_EQ(Transcript(folder, "a.txt 2>err") + folder.Read("err"), "0");
}

// The message is composed in a static buffer, because there is no memory for another.
TEST(TerminalInterface, SaysThatThereIsNoMemory) {
  if (!CAN_LIMIT_MEMORY) GTEST_SKIP() << "a sanitizer gives memory of its own";
  const TestFolder folder;
  const std::string said = "quorvel-cli: There is not enough memory";
  const std::string longest(4095 - said.size() - 5, 'x');
  const std::pair<std::string, std::string> rows[] = {
      {"'a\n\x1b\x7f\x1f ~\xC3\xA9'", " for a???? ~\xC3\xA9."},
      {longest + "x a", " for " + longest}};
  for (const auto& [arguments, end] : rows) {
    EXPECT_EQ(RunProgram(folder, QUORVEL_CLI, arguments,
                         "QUORVEL_FAULT=1+ LD_PRELOAD=" QUORVEL_FAILING_MEMORY),
              1);
    EXPECT_EQ(folder.Read("err"), said + end + "\n");
  }
}

}  // namespace
}  // namespace quorvel
