#include "files/output_file.h"

#include <gtest/gtest.h>

#include "support/platform.h"
#include "support/refused_calls.h"
#include "support/test_folder.h"

namespace quorvel {
namespace {
std::string Temporary(int number) {
  return ".qvl" + std::to_string(::getpid()) + "-" + std::to_string(number) + ".tmp";
}

// Until the commit the old file is unchanged, and only the writer can access the new one.
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
  EXPECT_TRUE(file.Write("new") && file.Commit()) << file.Error()->reason;
  EXPECT_EQ(folder.Count(), 4);
  EXPECT_EQ(folder.Read(Temporary(2)), "another's");
  EXPECT_EQ(fs::status(folder.Path("a")).permissions(),
            fs::status(folder.Path(Temporary(2))).permissions());
}

#if defined(__linux__) && defined(__x86_64__)
TEST(OutputFile, TellsWhatTheSystemRefuses) {
  const std::tuple<long, int, const char*> rows[] = {
      {SYS_newfstatat, EIO, "Input/output error"}, {SYS_access, EROFS, "Read-only file system"},
      {SYS_openat, EACCES, "Permission denied"},   {SYS_write, ENOSPC, "No space left on device"},
      {SYS_fsync, EIO, "Input/output error"},      {SYS_fsync, EINVAL, ""},
      {SYS_close, EDQUOT, "Disk quota exceeded"},  {SYS_rename, EBUSY, "Device or resource busy"}};
  for (const auto& row : rows) {
    const TestFolder folder;
    const std::string path = folder.Write("a", "old");
    const bool goesWell = *std::get<2>(row) == '\0';
    InChild([&] {
      const auto& [call, error, reason] = row;
      RefuseCall(call, error);
      OutputFile file(path, {});
      EXPECT_EQ(file.Write("new") && file.Commit(), goesWell);
      EXPECT_EQ(file.Error() ? file.Error()->reason : "", reason);
      EXPECT_TRUE(!file.Error() || file.Error()->file == path);
    });
    EXPECT_EQ(folder.Files(),
              (std::map<std::string, std::string>{{"a", goesWell ? "new" : "old"}}));
  }
}
TEST(OutputFile, LeavesNoHandleBehind) {
  const auto lowestFree = [] {
    const int handle = ::dup(STDOUT_FILENO);
    ::close(handle);
    return handle;
  };
  const TestFolder folder;
  for (const bool commits : {false, true}) {
    const int before = lowestFree();
    {
      OutputFile file(folder.Path("a"), {});
      EXPECT_TRUE(file.Write("new"));
      errno = EINTR;  // of an earlier call
      EXPECT_TRUE(!commits || file.Commit());
      EXPECT_EQ(lowestFree() == before, commits);
    }
    EXPECT_EQ(lowestFree(), before);
  }
}

// Programs can be started with standard input closed.
TEST(OutputFile, MayHaveTheNumberZero) {
  const TestFolder folder;
  InChild([&folder] {
    ::close(STDIN_FILENO);
    OutputFile file(folder.Path("a"), {});
    EXPECT_TRUE(file.Write("new") && file.Commit());
  });
  EXPECT_EQ(folder.Read("a"), "new");
}

TEST(OutputFile, TellsWhyADeviceCannotBeOpened) {
  InChild([] {
    RefuseCall(SYS_openat, ENODEV);
    const OutputFile file("/dev/null", {});
    EXPECT_EQ(file.Error()->reason, "No such device");
  });
}
#endif

TEST(OutputFile, FollowsLinks) {
  SKIP_ON_WINDOWS("links are for administrators");
  const std::tuple<const char*, std::string, std::string, const char*> rows[] = {
      {"here", "old", "old", ""},
      {"sub/back", "../sub/../new", "new", ""},
      {"folder/out", "../other/new", "other/new", ""},  // relative to the folder of the link
      {"loop", "loop", "", "Too many levels of symbolic links"},
      {"folder-to-be", "gone/", "", "No such file or directory"}};
  for (const auto& [link, target, place, reason] : rows) {
    SCOPED_TRACE(link);
    const TestFolder folder;
    for (const char* name : {"sub", "other"}) fs::create_directory(folder.Path(name));
    fs::create_directory_symlink("other", folder.Path("folder"));
    (void)folder.Write("old", "old");
    fs::create_symlink(target, folder.Path(link));
    auto expected = folder.Files();
    if (!place.empty()) expected[place] = "new";
    OutputFile file(folder.Path(link), {});
    EXPECT_EQ(file.Write("new") && file.Commit(), !place.empty());
    EXPECT_EQ(file.Error() ? file.Error()->reason : "", reason);
    EXPECT_EQ(folder.Files(), expected);
  }
  // As many as the system itself follows.
  for (const int links : {40, 41}) {
    const TestFolder folder;
    for (int i = 1; i <= links; ++i) {
      fs::create_symlink(std::to_string(i - 1), folder.Path(std::to_string(i)));
    }
    OutputFile file(folder.Path(std::to_string(links)), {});
    EXPECT_EQ(file.Write("new") && file.Commit(), links == 40) << links;
  }
}

TEST(OutputFile, WritesToNoFileOnlyWhereItMay) {
  OutputFile device(NULL_DEVICE, {});
  EXPECT_TRUE(device.Write("x") && device.Commit()) << device.Error()->reason;
  EXPECT_EQ(OutputFile(NULL_DEVICE, {}, Targets::ordinaryFiles).Error()->reason,
            "Is a device or a pipe, not a file");
  const TestFolder folder;
  EXPECT_EQ(OutputFile(folder.Path(""), {}).Error()->reason, "Is a directory");
}

TEST(OutputFile, NeverReplacesAFileToKeep) {
  const TestFolder folder;
  const std::string input = folder.Write("a", "old");
  const FilesToKeep kept = {
      {"settings file", ""}, {"input file", input}, {"index file", folder.Path("not yet")}};
  fs::create_hard_link(input, folder.Path("hard"));
  const std::pair<const char*, const char*> rows[] = {
      {"./a", "input file"}, {"hard", "input file"}, {"./not yet", "index file"}, {"b", ""}};
  for (const auto& [name, what] : rows) {
    OutputFile file(folder.Path(name), kept);
    EXPECT_EQ(file.Write("new") && file.Commit(), *what == '\0') << name;
    EXPECT_EQ(file.Error() ? file.Error()->reason : "", what) << name;
    EXPECT_EQ(folder.Read("a"), "old") << name;
  }
  EXPECT_FALSE(WouldReplace("", kept).has_value());
}

}  // namespace
}  // namespace quorvel
