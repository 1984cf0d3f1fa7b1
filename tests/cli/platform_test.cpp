// What a signal does to the built program whose standard output nobody reads.

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <csignal>
#include <fstream>
#include <functional>
#include <string>
#include <thread>
#include <vector>

#include "support/made_texts.h"
#include "support/test_folder.h"

namespace quorvel {
namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

// A run that has filled the pipe behind its standard output and waits for its reader.
class BlockedRun {
 public:
  explicit BlockedRun(bool ignoresHangUp) {
    const std::string input = folder_.Write("a.txt", LongText(1).substr(0, 300000));
    EXPECT_EQ(::pipe2(ends_.data(), O_CLOEXEC), 0);
    child_ = ::fork();
    if (child_ == 0) {
      std::signal(SIGHUP, ignoresHangUp ? SIG_IGN : SIG_DFL);
      std::signal(SIGINT, SIG_DFL);
      ::dup2(ends_[1], STDOUT_FILENO);
      ::execl(QUORVEL_CLI, "quorvel-cli", "-q", "--language", "none", "-o", "-", input.c_str(),
              nullptr);
      ::_exit(127);
    }
    ::close(ends_[1]);
    const int room = ::fcntl(ends_[0], F_GETPIPE_SZ);
    EXPECT_TRUE(Within(milliseconds(30000), [&] {
      int unread = 0;
      ::ioctl(ends_[0], FIONREAD, &unread);
      return unread == room;
    }));
  }

  ~BlockedRun() {
    ::close(ends_[0]);
    if (ended_) return;
    ::kill(child_, SIGKILL);
    ::waitpid(child_, nullptr, 0);
  }

  BlockedRun(const BlockedRun&) = delete;
  BlockedRun& operator=(const BlockedRun&) = delete;

  void Send(int signal) const { ::kill(child_, signal); }

  // Sends an interrupt and waits until it has been heard: the next one would not be.
  void Interrupt() const {
    Send(SIGINT);
    EXPECT_TRUE(Within(milliseconds(10000), [this] {
      std::ifstream file("/proc/" + std::to_string(child_) + "/status");
      std::string word;
      while (file >> word && word != "SigCgt:") continue;
      unsigned long caught = 0;
      file >> std::hex >> caught;
      return (caught >> (SIGINT - 1) & 1U) == 0;
    }));
  }

  // The exit status, or minus the signal that ended it; 1000 when it goes on for so long.
  int EndWithin(milliseconds time) {
    int status = 0;
    ended_ = Within(time, [&] { return ::waitpid(child_, &status, WNOHANG) == child_; });
    if (!ended_) return 1000;
    return WIFSIGNALED(status) ? -WTERMSIG(status) : WEXITSTATUS(status);
  }

  // Reads all that is still to come.
  [[nodiscard]] std::string Rest() const {
    std::string rest;
    std::array<char, 65536> block;
    ssize_t got = 0;
    while ((got = ::read(ends_[0], block.data(), block.size())) > 0) {
      rest.append(block.data(), static_cast<std::size_t>(got));
    }
    return rest;
  }

 private:
  static bool Within(milliseconds time, const std::function<bool()>& holds) {
    const auto end = Clock::now() + time;
    while (!holds()) {
      if (Clock::now() > end) return false;
      std::this_thread::sleep_for(milliseconds(5));
    }
    return true;
  }

  TestFolder folder_;
  std::array<int, 2> ends_ = {};
  pid_t child_ = 0;
  bool ended_ = false;
};

// It would end within a second; the time is for a machine with much to do.
constexpr milliseconds SOON = milliseconds(10000);

TEST(Platform, SignalsEndARunWhoseReaderWaits) {
  for (const auto& [signal, end] :
       {std::pair(SIGTERM, -SIGTERM), {SIGHUP, -SIGHUP}, {SIGINT, 130}}) {
    BlockedRun run(false);
    run.Send(signal);
    EXPECT_EQ(run.EndWithin(SOON), end) << signal;
  }
}

TEST(Platform, SignalsAreDeadlyTheSecondTime) {
  BlockedRun run(false);
  run.Interrupt();
  run.Send(SIGINT);
  EXPECT_EQ(run.EndWithin(SOON), -SIGINT);
}

TEST(Platform, SignalsThatTheCallerIgnoresAreIgnored) {
  BlockedRun run(true);
  run.Send(SIGHUP);
  EXPECT_EQ(run.EndWithin(milliseconds(300)), 1000);
  EXPECT_TRUE(run.Rest().ends_with("\n\n"));
  EXPECT_EQ(run.EndWithin(SOON), 0);
}

}  // namespace
}  // namespace quorvel
