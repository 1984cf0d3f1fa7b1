#include "files/output_file.h"

#include <gtest/gtest.h>
#ifdef _WIN32
#include <windows.h>
#else
#include <sys/stat.h>
#endif

#include "files/read_file.h"
#include "support/platform.h"
#include "support/test_folder.h"
#ifdef __x86_64__
#include "support/refused_calls.h"
#endif

namespace quorvel {
namespace {

namespace fs = std::filesystem;

// The new file's name, beside its target.
std::string Temporary(int number) {
  return ".qvl" + std::to_string(::getpid()) + "-" + std::to_string(number) + ".tmp";
}

// Until then the old file is as it was, and the new one its writer's alone.
TEST(OutputFile, ReplacesAFileWhenTheNewOneIsWhole) {
  const TestFolder folder;
  for (const bool commits : {false, true}) {
    (void)folder.Write("a", "old");
    {
      OutputFile file(folder.Path("a"), {}, Targets::ordinaryFiles);
      EXPECT_TRUE(file.Write("new") && file.Write("er"));
      EXPECT_EQ(folder.Files(),
                (std::map<std::string, std::string>{{"a", "old"}, {Temporary(0), "newer"}}));
      const auto rights = fs::status(folder.Path(Temporary(0))).permissions();
      EXPECT_TRUE(ON_WINDOWS || rights == fs::perms(0600));
      EXPECT_EQ(commits && file.Commit(), commits);
    }
    EXPECT_EQ(folder.Files(),
              (std::map<std::string, std::string>{{"a", commits ? "newer" : "old"}}));
  }
}

TEST(OutputFile, TriesOtherNamesUntilOneIsFree) {
  const TestFolder folder;
  for (int n = 0; n < 3; ++n) (void)folder.Write(Temporary(n), "another's");
  OutputFile file(folder.Path("a"), {});
  EXPECT_TRUE(file.Write("new") && file.Commit()) << file.Why()->reason;
  EXPECT_EQ(folder.Count(), 4);
  EXPECT_EQ(folder.Read(Temporary(2)), "another's");
}

#ifdef __x86_64__
TEST(OutputFile, TellsWhatTheSystemRefuses) {
  const struct {
    long call;
    int error;
    const char* reason;  // empty where all goes well
  } rows[] = {{SYS_newfstatat, EIO, "Input/output error"},
              {SYS_access, EROFS, "Read-only file system"},
              {SYS_readlink, EIO, "Input/output error"},
              {SYS_openat, EACCES, "Permission denied"},
              {SYS_write, ENOSPC, "No space left on device"},
              {SYS_fsync, EIO, "Input/output error"},
              {SYS_fsync, EINVAL, ""},
              {SYS_close, EDQUOT, "Disk quota exceeded"},
              {SYS_rename, EBUSY, "Device or resource busy"}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.reason);
    const TestFolder folder;
    const std::string path = folder.Write("a", "old");
    InChild([&] {
      RefuseCall(row.call, row.error);
      OutputFile file(path, {});
      EXPECT_EQ(file.Write("new") && file.Commit(), *row.reason == '\0');
      EXPECT_EQ(file.Why() ? file.Why()->reason : "", row.reason);
      EXPECT_TRUE(!file.Why() || file.Why()->file == path);
    });
    EXPECT_EQ(folder.Files(),
              (std::map<std::string, std::string>{{"a", *row.reason == '\0' ? "new" : "old"}}));
  }
}
#endif

TEST(OutputFile, FollowsLinks) {
  SKIP_ON_WINDOWS("links are for administrators");
  const std::tuple<const char*, std::string, std::string, const char*> rows[] = {
      {"here", "old", "old", ""},
      {"there", "sub/new", "sub/new", ""},
      {"sub/back", "../sub/../new", "new", ""},
      {"folder/out", "../other/new", "other/new", ""},  // from where the folder is
      {"absolute", "@/new", "new", ""},
      {"chain", "sub/link", "sub/new", ""},
      {"loop", "loop", "", "Too many levels of symbolic links"},
      {"folder-to-be", "gone/", "", "No such file or directory"}};
  for (const auto& [link, target, place, reason] : rows) {
    SCOPED_TRACE(link);
    const TestFolder folder;
    for (const char* name : {"sub", "other"}) fs::create_directory(folder.Path(name));
    fs::create_directory_symlink("other", folder.Path("folder"));
    fs::create_symlink("new", folder.Path("sub/link"));
    const std::string old = folder.Write("old", "old");
    const std::string names = target[0] == '@' ? folder.Path("new") : target;
    fs::create_symlink(names, folder.Path(link));
    auto expected = folder.Files();
    if (!place.empty()) expected[place] = "new";
    OutputFile file(folder.Path(link), {});
    EXPECT_EQ(file.Write("new") && file.Commit(), !place.empty());
    EXPECT_EQ(file.Why() ? file.Why()->reason : "", reason);
    EXPECT_EQ(folder.Files(), expected);
  }
}

TEST(OutputFile, WritesToNoFileOnlyWhereItMay) {
  OutputFile device(NULL_DEVICE, {});
  EXPECT_TRUE(device.Write("x") && device.Commit()) << device.Why()->reason;
  const std::string noFile = "Is a device or a pipe, not a file";
  EXPECT_EQ(OutputFile(NULL_DEVICE, {}, Targets::ordinaryFiles).Why()->reason, noFile);
  const TestFolder folder;
  EXPECT_EQ(OutputFile(folder.Path(""), {}).Why()->reason, "Is a directory");
#ifndef _WIN32
  ASSERT_EQ(::mknod(folder.Path("socket").c_str(), S_IFSOCK | 0600U, 0), 0);
  EXPECT_EQ(OutputFile(folder.Path("socket"), {}).Why()->reason, "No such device or address");
#endif
}

#ifdef _WIN32
// A file that another program has open: that it may be read by others is all the same.
TEST(OutputFile, LeavesAFileThatIsOpenElsewhere) {
  const std::string message = "The file is open in another program";
  for (const int sharing : {0, FILE_SHARE_READ | FILE_SHARE_WRITE}) {
    const TestFolder folder;
    const std::string path = folder.Write("\xC3\xA9 \xCF\x89", "old");
    const fs::path widePath = PathOfBytes(path);
    OutputFile early(path, {});
    EXPECT_TRUE(early.Write("new"));
    const HANDLE open =
        ::CreateFileW(widePath.c_str(), GENERIC_READ, static_cast<unsigned long>(sharing), nullptr,
                      OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    ASSERT_NE(open, INVALID_HANDLE_VALUE) << ::GetLastError();
    EXPECT_EQ(OutputFile(path, {}).Why()->reason, message);
    EXPECT_FALSE(early.Commit());
    EXPECT_EQ(early.Why()->reason, message);
    const Result<std::string> read = ReadFileBytes(path, 10);
    EXPECT_EQ(read ? "" : read.Why().reason, sharing == 0 ? message : "");
    ::CloseHandle(open);
    EXPECT_EQ(*ReadFileBytes(path, 10), "old");
  }
}

#endif

TEST(OutputFile, NeverReplacesAFileToKeep) {
  const TestFolder folder;
  const std::string input = folder.Write("a", "old");
  const FilesToKeep kept = {
      {"settings file", ""}, {"input file", input}, {"index file", folder.Path("not yet")}};
  fs::create_hard_link(input, folder.Path("hard"));
  const std::pair<const char*, const char*> rows[] = {{"a", "input file"},
                                                      {"./a", "input file"},
                                                      {"hard", "input file"},
                                                      {"./not yet", "index file"},
                                                      {"b", ""}};
  for (const auto& [name, what] : rows) {
    OutputFile file(folder.Path(name), kept);
    EXPECT_EQ(file.Write("new") && file.Commit(), *what == '\0') << name;
    EXPECT_EQ(file.Why() ? file.Why()->reason : "", what) << name;
    EXPECT_EQ(folder.Read("a"), "old") << name;
  }
  EXPECT_FALSE(WouldReplace("", kept).has_value());
}

}  // namespace
}  // namespace quorvel
