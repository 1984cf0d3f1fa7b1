#include "files/read_file.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <thread>

#include "files/digest.h"
#include "files/system_calls.h"
#include "support/platform.h"
#include "support/scripted_conversation.h"
#include "support/test_folder.h"

namespace quorvel {
namespace {

TEST(ReadFile, ReadsPartsAndTellsFilesFromFolders) {
  const TestFolder folder;
  const std::string path = folder.Write("a", std::string(100000, 'x') + "end");
  EXPECT_FALSE(FileExists(folder.Path("")));
  EXPECT_FALSE(FolderExists(path));
  EXPECT_EQ(ReadFileBytes(path, 1000000)->substr(99999), "xend");
  EXPECT_EQ(*ReadFileBytes(path, 5), "xxxxx");
  EXPECT_EQ(ReadFileBytes(folder.Path(""), 5).Why().reason, "Is a directory");
  EXPECT_EQ(ReadFileBytes(folder.Path("b"), 5).Why().kind, FaultKind::missing);
}

#ifndef _WIN32
// One that has taken the place of a file since that was looked at.
TEST(ReadFile, WaitsForNoPipe) {
  constexpr unsigned SECONDS = 20;
  const TestFolder folder;
  ASSERT_EQ(::mkfifo(folder.Path("a").c_str(), 0600), 0);
  ::alarm(SECONDS);  // ends the test that waits
  const int pipe = OpenToRead(folder.Path("a"));
  ::alarm(0);
  const std::optional<OpenStatus> status = StatusOf(pipe);
  EXPECT_TRUE(status && !status->isOrdinary);
  ::close(pipe);
  EXPECT_EQ(ReadFileBytes(folder.Path("a"), 5).Why().kind, FaultKind::notAFile);
}

// A file server may hold a file for a client that has changes of its own to bring in.
TEST(ReadFile, WaitsUntilAnotherProgramLetsGoOfAFile) {
  const TestFolder folder;
  const std::string path = folder.Write("a", "bytes");
  const int held = ::open(path.c_str(), O_WRONLY | O_CLOEXEC);  // NOLINT(*-vararg)
  std::signal(SIGIO, SIG_IGN);
  const bool isHeld = ::fcntl(held, F_SETLEASE, F_WRLCK) == 0;  // NOLINT(*-vararg)
  std::thread letsGo([held] {
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    ::fcntl(held, F_SETLEASE, F_UNLCK);  // NOLINT(*-vararg)
  });
  const Result<std::string> bytes = ReadFileBytes(path, 10);
  letsGo.join();
  ::close(held);
  if (!isHeld) GTEST_SKIP() << "this file system has no leases";
  ASSERT_TRUE(bool(bytes)) << bytes.Why().reason;
  EXPECT_EQ(*bytes, "bytes");
}

// Of such files the system says that they are empty.
TEST(ReadFile, ReadsMoreThanTheSystemSays) {
  const std::string path = "/proc/self/status";
  if (!FileExists(path)) GTEST_SKIP() << "no such files here";
  EXPECT_TRUE(ReadFileBytes(path, 1U << 20U)->starts_with("Name:"));
}
#endif

TEST(ReadInput, ReadsOrdinaryFilesOnly) {
  const TestFolder folder;
  const std::string tooLong = folder.Write("long", "");
  std::filesystem::resize_file(PathOfBytes(tooLong), 2147483647);
  const std::pair<std::string, FaultKind> rows[] = {{"", FaultKind::missing},
                                                    {folder.Path("none"), FaultKind::missing},
                                                    {folder.Path(""), FaultKind::missing},
                                                    {NULL_DEVICE, FaultKind::notAFile},
                                                    {tooLong, FaultKind::tooLong}};
  SilentProgress nobody;
  for (const auto& [path, kind] : rows) {
    const Result<InputBytes> input = ReadInput(path, nobody);
    ASSERT_FALSE(bool(input)) << path;
    EXPECT_EQ(input.Why().kind, kind) << path;
    EXPECT_EQ(input.Why().file, path);
  }
  EXPECT_TRUE(ReadInput(folder.Write("empty", ""), nobody)->View().empty());
}

TEST(ReadInput, GivesAllBytesWithTheirDigestUnlessItIsStopped) {
  const TestFolder folder;
  const std::string bytes(5000000, 'x');
  const std::string path = folder.Write("a", bytes);
  ScriptedConversation ui;
  {
    const Result<InputBytes> input = ReadInput(path, ui);
    EXPECT_EQ(input->View(), bytes);
    EXPECT_EQ(input->Stamp(), StampOf(path));
    (void)folder.Write("a", "another text");
    EXPECT_EQ(InputDigest(*input).Text(), DigestOf(bytes)) << "of what was read";
    EXPECT_EQ(ComputeFileDigest(path).text, DigestOf("another text"));
  }
  ui.RequestStop();
  EXPECT_EQ(ReadInput(path, ui).Why().kind, FaultKind::stopped);
}

}  // namespace
}  // namespace quorvel
