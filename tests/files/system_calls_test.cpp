#include "files/system_calls.h"

#include <gtest/gtest.h>

#ifndef _WIN32
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <thread>

#include "files/read_file.h"
#include "support/made_texts.h"
#include "support/test_folder.h"

namespace quorvel {
namespace {

namespace fs = std::filesystem;

// A pipe takes and gives some of it at a time.
TEST(SystemCalls, GoOnUntilAllIsReadOrWritten) {
  const std::string bytes = Repeated("0123456789", 50000);
  int ends[2] = {};
  ASSERT_EQ(::pipe(ends), 0);
  std::thread writer([&bytes, end = ends[1]] {
    EXPECT_TRUE(WriteBytes(end, bytes));
    ::close(end);
  });
  std::string read(bytes.size() + 1, ' ');
  EXPECT_EQ(ReadBytes(ends[0], read.data(), bytes.size() - 1), std::ssize(bytes) - 1);
  EXPECT_EQ(ReadBytes(ends[0], read.data() + bytes.size() - 1, 2), 1);
  writer.join();
  EXPECT_EQ(read, bytes + " ");
  ::close(ends[0]);
  EXPECT_EQ(ReadBytes(ends[0], read.data(), 1), -1);
  EXPECT_FALSE(WriteBytes(ends[1], bytes));
  EXPECT_FALSE(StatusOf(ends[0]).has_value());
}

TEST(SystemCalls, FollowAsManyLinksAsTheSystem) {
  const TestFolder folder;
  for (int n = 0; n < 41; ++n) {
    fs::create_symlink(std::to_string(n), folder.Path(std::to_string(n + 1)));
  }
  std::error_code error;
  EXPECT_EQ(BehindLinks(folder.Path("40"), error), folder.Path("0"));
  EXPECT_FALSE(error);
  EXPECT_EQ(BehindLinks(folder.Path("41"), error), "");
  EXPECT_EQ(NumberOf(error), ELOOP);
}

TEST(SystemCalls, GiveNewFilesTheRightsOfTheUmask) {
  const TestFolder folder;
  const mode_t old = ::umask(0);
  for (const bool isPrivate : {false, true}) {
    const int handle = OpenFile(folder.Path("a"), O_WRONLY | O_CREAT, isPrivate);
    struct stat status = {};
    EXPECT_EQ(::fstat(handle, &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, isPrivate ? 0600U : 0666U);
    ::close(handle);
    fs::remove(folder.Path("a"));
  }
  ::umask(old);
}

// A pipe may have taken the place of a file since that was looked at.
TEST(SystemCalls, WaitForNoPipe) {
  const TestFolder folder;
  ASSERT_EQ(::mkfifo(folder.Path("a").c_str(), 0600), 0);
  ::alarm(20);  // ends the test that waits
  const int pipe = OpenToRead(folder.Path("a"));
  ::alarm(0);
  const std::optional<OpenStatus> status = StatusOf(pipe);
  EXPECT_TRUE(status && !status->isOrdinary);
  ::close(pipe);
}

// NOLINTNEXTLINE(cppcoreguidelines-avoid-non-const-global-variables): a handler reaches no other
int heldFile = -1;

// A file server may hold a file for a client that has changes of its own to bring in; it hears by a
// signal that somebody else wants it.
TEST(SystemCalls, WaitUntilAnotherProgramLetsGoOfAFile) {
  const TestFolder folder;
  const std::string path = folder.Write("a", "bytes");
  heldFile = ::open(path.c_str(), O_WRONLY | O_CLOEXEC);                    // NOLINT(*-vararg)
  std::signal(SIGIO, [](int) { ::fcntl(heldFile, F_SETLEASE, F_UNLCK); });  // NOLINT(*-vararg)
  const bool isHeld = ::fcntl(heldFile, F_SETLEASE, F_WRLCK) == 0;          // NOLINT(*-vararg)
  const Result<std::string> bytes = ReadFileBytes(path, 10);
  ::close(heldFile);
  std::signal(SIGIO, SIG_DFL);
  if (!isHeld) GTEST_SKIP() << "this file system has no leases";
  ASSERT_TRUE(bool(bytes)) << bytes.Why().reason;
  EXPECT_EQ(*bytes, "bytes");
}

}  // namespace
}  // namespace quorvel
#endif
