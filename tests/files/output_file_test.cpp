#include "files/output_file.h"

#include <gtest/gtest.h>
#ifdef _WIN32
#include <windows.h>
#else
#include <sys/stat.h>
#endif

#include <algorithm>
#include <utility>
#include <vector>

#include "files/read_file.h"
#include "support/file_size_limit.h"
#include "support/platform.h"
#include "support/test_folder.h"
#ifdef __linux__
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

TEST(OutputFile, LeavesTheOldFileWhereTheDiskIsFull) {
  SKIP_ON_WINDOWS("the size of files cannot be limited");
  const TestFolder folder;
  const FileSizeLimit limit(10);
  OutputFile file(folder.Write("a", "old"), {});
  EXPECT_TRUE(file.Write("0123456789"));
  EXPECT_FALSE(file.Write("x") || file.Write("") || file.Commit());
  EXPECT_EQ(file.Why()->kind, FaultKind::notWritten);
  EXPECT_EQ(file.Why()->reason, "File too large");
  EXPECT_EQ(folder.Read("a"), "old");
}

#ifdef __linux__
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

TEST(OutputFile, MakesTheFileThatALinkNames) {
  SKIP_ON_WINDOWS("links are for administrators");
  const struct {
    const char* link;
    std::string names;
    std::string file = {};  // in the end
    const char* reason = "";
  } rows[] = {
      {"here", "new", "new"},
      {"there", "sub/new", "sub/new"},
      {"sub/back", "../sub/../new", "new"},
      {"folder/out", "../other/new", "other/new"},  // from where the folder is
      {"absolute", "@/new", "new"},
      {"chain", "sub/link", "sub/new"},
      {"loop", "loop", "", "Too many levels of symbolic links"},
      {"astray", "gone/new", "", "No such file or directory"},
      {"folder-to-be", "gone/", "", "No such file or directory"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.link);
    const TestFolder folder;
    for (const char* name : {"sub", "other"}) fs::create_directory(folder.Path(name));
    fs::create_directory_symlink("other", folder.Path("folder"));
    fs::create_symlink("new", folder.Path("sub/link"));
    std::string names = row.names;
    if (names.starts_with('@')) names = folder.Path(names.substr(2));
    fs::create_symlink(names, folder.Path(row.link));
    OutputFile file(folder.Path(row.link), {});
    EXPECT_EQ(file.Write("new"), !row.file.empty());
    const fs::path place = fs::path(folder.Path(row.file)).parent_path();
    const auto isTemporary = [](const auto& entry) { return entry.path().extension() == ".tmp"; };
    EXPECT_EQ(std::count_if(fs::directory_iterator(place), {}, isTemporary),
              row.file.empty() ? 0 : 1);
    EXPECT_EQ(file.Commit(), !row.file.empty());
    EXPECT_EQ(file.Why() ? file.Why()->reason : "", row.reason);
    EXPECT_EQ(fs::read_symlink(folder.Path(row.link)), names);
    EXPECT_TRUE(row.file.empty() || folder.Files()[row.file] == "new");
    EXPECT_EQ(folder.Files().size(), row.file.empty() ? 3U : 4U);
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
  const FilesToKeep kept = {{"settings file", ""},
                            {"input file", input},
                            {"index file", folder.Path("not yet")},
                            {"concordance file", folder.Path("dangling")}};
  fs::create_hard_link(input, folder.Path("hard"));
  fs::create_directory(folder.Path("in"));
  std::vector<std::pair<std::string, std::string>> rows = {
      {"a", "input file"},       {"in/../a", "input file"},   {"hard", "input file"},
      {"not yet", "index file"}, {"./not yet", "index file"}, {"b", ""}};
  if (!ON_WINDOWS) {
    fs::create_symlink("a", folder.Path("link"));
    fs::create_symlink("../not yet", folder.Path("in/to the index"));
    fs::create_symlink("in/nowhere", folder.Path("dangling"));
    fs::create_symlink("dangling", folder.Path("to a link"));
    fs::create_symlink("b2", folder.Path("elsewhere"));
    rows.insert(rows.end(), {{"link", "input file"},
                             {"in/to the index", "index file"},
                             {"dangling", "concordance file"},
                             {"to a link", "concordance file"},
                             {"in/nowhere", "concordance file"},
                             {"elsewhere", ""}});
  }
  for (const auto& [name, what] : rows) {
    OutputFile file(folder.Path(name), kept);
    EXPECT_EQ(file.Write("new") && file.Commit(), what.empty()) << name;
    EXPECT_EQ(file.Why().has_value() ? file.Why()->reason : "", what) << name;
    EXPECT_EQ(file.Why().has_value(), !what.empty()) << name;
    EXPECT_EQ(folder.Read("a"), "old") << name;
  }
  EXPECT_FALSE(WouldReplace("", kept).has_value());
}

}  // namespace
}  // namespace quorvel
