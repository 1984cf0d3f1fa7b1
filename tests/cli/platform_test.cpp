// Signals to the built program while nobody reads its standard output.

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/ioctl.h>
#include <sys/wait.h>

#include <chrono>
#include <csignal>
#include <thread>

#include "support/made_texts.h"
#include "support/test_folder.h"

namespace quorvel {
namespace {

constexpr int GOES_ON = 1000;

bool Within(int milliseconds, const std::function<bool()>& holds) {
  for (; milliseconds > 0 && !holds(); milliseconds -= 5) {
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
  }
  return milliseconds > 0;
}

// True if the process handles an interrupt itself.
bool CatchesInterrupts(pid_t process) {
  std::ifstream file("/proc/" + std::to_string(process) + "/status");
  std::string word;
  while (file >> word && word != "SigCgt:") continue;
  unsigned long caught = 0;
  file >> std::hex >> caught;
  return (caught >> (SIGINT - 1) & 1U) != 0;
}

// Sends signals to a run that waits because the pipe of its standard output is full. Returns its
// exit status, or minus the signal that ended it. If the run continues, its output is read.
int EndBy(const std::vector<int>& signals, bool ignoresHangUp = false,
          const std::string& arguments = "a.txt") {
  const TestFolder folder;
  const std::string text = LongText(1).substr(0, 300000);
  for (const char* name : {"a.txt", "b.txt"}) (void)folder.Write(name, text);
  const std::string line =
      "cd '" + folder.Path("") + "'; exec " QUORVEL_CLI " -q --language none -o - " + arguments;
  int ends[2] = {};
  EXPECT_EQ(::pipe2(ends, O_CLOEXEC), 0);
  const pid_t child = ::fork();
  if (child == 0) {
    std::signal(SIGHUP, ignoresHangUp ? SIG_IGN : SIG_DFL);
    std::signal(SIGINT, SIG_DFL);
    ::alarm(60);  // seconds; a longer run hangs
    ::dup2(ends[1], STDOUT_FILENO);
    ::execl("/bin/sh", "sh", "-c", line.c_str(), nullptr);
    ::_exit(127);
  }
  ::close(ends[1]);
  EXPECT_TRUE(Within(30000, [&] {
    int unread = 0;
    ::ioctl(ends[0], FIONREAD, &unread);
    return unread == ::fcntl(ends[0], F_GETPIPE_SZ);
  }));
  for (const int signal : signals) {
    ::kill(child, signal);
    // Wait until this signal is handled before sending the next.
    if (signals.size() > 1) (void)Within(10000, [&] { return !CatchesInterrupts(child); });
  }
  int status = 0;
  const auto ended = [&] { return ::waitpid(child, &status, WNOHANG) == child; };
  // It usually ends within a second; the limit is for a busy machine.
  if (Within(ignoresHangUp ? 300 : 10000, ended)) {
    ::close(ends[0]);
    return WIFSIGNALED(status) ? -WTERMSIG(status) : WEXITSTATUS(status);
  }
  std::string block(65536, ' ');
  std::string rest;
  for (ssize_t got = 0; (got = ::read(ends[0], block.data(), block.size())) > 0;) {
    rest.append(block, 0, static_cast<std::size_t>(got));
  }
  ::close(ends[0]);
  ::waitpid(child, &status, 0);
  EXPECT_TRUE(rest.ends_with("\n\n"));
  return GOES_ON + status;
}

TEST(Platform, SignalsEndARunWhoseReaderWaitsUnlessTheCallerIgnoresThem) {
  EXPECT_EQ(EndBy({SIGTERM}), -SIGTERM);
  EXPECT_EQ(EndBy({SIGHUP}), -SIGHUP);
  EXPECT_EQ(EndBy({SIGINT}), 130);
  EXPECT_EQ(EndBy({SIGINT, SIGINT}), -SIGINT);
  EXPECT_EQ(EndBy({SIGHUP}, true), GOES_ON);
  EXPECT_EQ(EndBy({SIGINT}, false, "a.txt b.txt --format tsv -j 1"), 130);
}

TEST(Platform, AnInterruptEndsARunThatWaitsForItsInput) {
  int ends[2] = {};
  EXPECT_EQ(::pipe2(ends, O_CLOEXEC), 0);
  const pid_t child = ::fork();
  if (child == 0) {
    std::signal(SIGINT, SIG_DFL);
    ::alarm(60);  // seconds, after which it hangs
    ::dup2(ends[0], STDIN_FILENO);
    ::execl(QUORVEL_CLI, "quorvel-cli", "-q", "-", nullptr);
    ::_exit(127);
  }
  EXPECT_TRUE(Within(30000, [&] { return CatchesInterrupts(child); }));
  ::kill(child, SIGINT);
  int status = 0;
  ::waitpid(child, &status, 0);
  EXPECT_EQ(status, W_EXITCODE(130, 0));
  ::close(ends[0]);
  ::close(ends[1]);
}

}  // namespace
}  // namespace quorvel
