#include "files/read_file.h"

#include <gtest/gtest.h>
#ifdef __linux__
#include <fcntl.h>

#include <chrono>
#include <csignal>
#include <thread>
#endif

#include "support/made_texts.h"
#include "support/platform.h"
#include "support/refused_calls.h"
#include "support/scripted_conversation.h"
#include "support/test_folder.h"

namespace quorvel {
namespace {
TEST(ReadFile, GivesTheFirstBytes) {
  const TestFolder folder;
  const std::string bytes = Repeated("0123456789", 20000);
  const std::string path = folder.Write("a", bytes);
  for (const std::size_t limit : {0, 65536, 199999, 200000, 200001}) {
    EXPECT_TRUE(*ReadFileBytes(path, limit) == bytes.substr(0, limit)) << limit;
  }
#ifdef __linux__
  // A file that reports the length 0.
  EXPECT_TRUE(ReadFileBytes("/proc/version", 4096)->starts_with("Linux"));
#endif
}

void ExpectFault(const std::string& path, FaultKind kind, const char* reason) {
  SilentProgress nobody;
  for (const Fault& fault : {ReadFileBytes(path, 5).Error(), ReadInput(path, nobody).Error()}) {
    EXPECT_EQ(std::tie(fault.kind, fault.file), std::tie(kind, path));
    EXPECT_EQ(fault.reason, reason);
  }
}

TEST(ReadFile, SaysWhyItReadsNothing) {
  const TestFolder folder;
  ExpectFault("", FaultKind::missing, "No such file or directory");
  ExpectFault(folder.Path("none"), FaultKind::missing, "No such file or directory");
  ExpectFault(folder.Path(""), FaultKind::missing, "Is a directory");
  ExpectFault(NULL_DEVICE, FaultKind::notAFile, "Is a device or a pipe, not a file");
#ifdef __linux__
  const std::string path = folder.Write("a", "x");
  const std::tuple<long, int, FaultKind, const char*> rows[] = {
      {SYS_openat, EACCES, FaultKind::notOpened, "Permission denied"},
      {SYS_openat, ENOENT, FaultKind::missing, "No such file or directory"},
      {SYS_read, EIO, FaultKind::notRead, "Input/output error"}};
  for (const auto& row : rows) {
    InChild([&] {
      const auto& [call, error, kind, reason] = row;
      RefuseCall(call, error);
      ExpectFault(path, kind, reason);
    });
  }
#endif
}

#ifdef __linux__
// The holder of a lease releases it some time after another program has asked for the file.
TEST(ReadFile, WaitsForALease) {
  const TestFolder folder;
  const std::string path = folder.Write("a", "x");
  const auto handling = std::signal(SIGIO, SIG_IGN);
  const int holder = ::open(path.c_str(), O_RDWR);  // NOLINT(*-vararg)
  ASSERT_EQ(::fcntl(holder, F_SETLEASE, F_WRLCK), 0);
  const std::jthread release([holder] {
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    ::fcntl(holder, F_SETLEASE, F_UNLCK);
  });
  const Result<std::string> bytes = ReadFileBytes(path, 5);
  EXPECT_TRUE(bytes && *bytes == "x");
  ::close(holder);
  std::signal(SIGIO, handling);
}
#endif

// The length is correct above 4 GB too. Reading the longest allowed file begins and is then
// stopped.
TEST(ReadInput, TakesFilesWhosePlacesFit) {
  const std::pair<std::uintmax_t, FaultKind> rows[] = {{2147483646, FaultKind::stopped},
                                                       {2147483647, FaultKind::tooLong},
                                                       {(1ULL << 32U) + 5, FaultKind::tooLong}};
  for (const auto& [length, kind] : rows) {
    const TestFolder folder;
    const std::string path = folder.Write("a", "");
    fs::resize_file(PathOfBytes(path), length);
    ScriptedConversation ui;
    ui.stopAtYield = 1;
    EXPECT_EQ(ReadInput(path, ui).Error().kind, kind) << length;
    EXPECT_EQ(FileToRead(path).Length(), length);
    EXPECT_EQ(StampOf(path).length, length);
  }
}

TEST(ReadInput, GivesAllBytes) {
  const TestFolder folder;
  const std::string bytes = Repeated("0123456789", 1000000);
  const std::string path = folder.Write("a", bytes);
  SilentProgress nobody;
  const Result<InputBytes> input = ReadInput(path, nobody);
  EXPECT_TRUE(input->View() == bytes);
  EXPECT_EQ(input->Path(), path);
  EXPECT_EQ(input->Stamp(), StampOf(path));
}

TEST(FileToRead, ReadsNothingOfWhatIsNoFile) {
  const TestFolder folder;
  EXPECT_EQ(FileToRead(folder.Path("none")).Begin(5), "");
  EXPECT_EQ(FileToRead(folder.Path("")).Begin(5), "");
  EXPECT_EQ(InputBytes().View(), "");
}

// As many bytes are read as the file had when it was opened, or as were read at first. If it has
// become shorter, the remaining bytes are read.
TEST(FileToRead, ReadsAFileThatGrowsOrIsCut) {
  const std::string old = Repeated("0123456789", 500000);
  // How many bytes are read at first, the length of the file after it was opened, and how many
  // bytes are read in all.
  const std::tuple<const char*, std::size_t, std::size_t, std::size_t> rows[] = {
      {"left alone", 10, 5000000, 5000000},
      {"grown", 0, 6000000, 5000000},
      {"grown before it was begun", 5500000, 6000000, 5500000},
      {"cut", 10, 4500000, 4500000},
      {"emptied", 0, 0, 0}};
  for (const auto& [name, begin, length, read] : rows) {
    SCOPED_TRACE(name);
    const TestFolder folder;
    FileToRead file(folder.Write("a", old));
    const std::string now = Repeated(old, 2).substr(0, length);
    (void)folder.Write("a", now);
    EXPECT_TRUE(file.Begin(begin) == now.substr(0, begin));
    const Result<InputBytes> input = file.ReadAll({1, 2}, [] { return true; });
    EXPECT_TRUE(input->View() == now.substr(0, read)) << input->View().size();
    EXPECT_EQ(input->Stamp(), (FileStamp{1, 2}));
  }
}

}  // namespace
}  // namespace quorvel
