#include "files/file_system.h"

#include <gtest/gtest.h>

#include "support/platform.h"
#include "support/refused_calls.h"
#include "support/test_folder.h"

namespace quorvel {
TEST(FileSystem, TellsWhatThereIs) {
  const TestFolder folder;
  // Whether it is a file, an ordinary file, a folder. Its length, or -1.
  const std::tuple<std::string, bool, bool, bool, std::int64_t> rows[] = {
      {folder.Write("a", "abc"), true, true, false, 3},
      {folder.Path(""), false, false, true, -1},
      {NULL_DEVICE, true, false, false, -1},
      {folder.Path("none"), false, false, false, -1},
      {"", false, false, false, -1}};
  for (const auto& [path, isFile, isRegular, isFolder, length] : rows) {
    EXPECT_EQ(FileExists(path), isFile) << path;
    EXPECT_EQ(IsRegularFile(path), isRegular) << path;
    EXPECT_EQ(FolderExists(path), isFolder) << path;
    EXPECT_EQ(FileLength(path).value_or(-1), length) << path;
  }
}

TEST(FileSystem, StampsAFileWithItsLengthAndTime) {
  const TestFolder folder;
  const fs::path path = PathOfBytes(folder.Write("a", "abc"));
  const FileStamp stamp = StampOf(folder.Path("a"));
  EXPECT_EQ(stamp.length, 3);
  const auto time = fs::last_write_time(path);
  (void)folder.Write("a", "abcd");
  fs::last_write_time(path, time);
  EXPECT_EQ(StampOf(folder.Path("a")), (FileStamp{4, stamp.modified}));
  fs::last_write_time(path, time + std::chrono::seconds(2));
  EXPECT_NE(StampOf(folder.Path("a")), (FileStamp{4, stamp.modified}));
  EXPECT_EQ(StampOf(folder.Path("none")), (FileStamp{-1, -1}));
}

TEST(FileSystem, KnowsAFileByItsOtherNames) {
  const TestFolder folder;
  for (const char* name : {"a", "b"}) (void)folder.Write(name, "abc");
  fs::create_directory(folder.Path("in"));
  fs::create_hard_link(folder.Path("a"), folder.Path("hard"));
  std::vector<std::tuple<std::string, std::string, bool>> rows = {
      {"a", "a", true},        {"a", "in/../a", true},      {"a", "hard", true},
      {"a", "b", false},       {"a", "none", false},        {"none", "a", false},
      {"none", "nine", false}, {"none", "in/../none", true}};
  if (!ON_WINDOWS) {
    fs::create_symlink("a", folder.Path("link"));
    fs::create_symlink("../none", folder.Path("in/dangling"));
    for (const char* name : {"loop", "hoop"}) fs::create_symlink(name, folder.Path(name));
    rows.insert(rows.end(), {{"a", "link", true},
                             {"b", "link", false},
                             {"none", "in/dangling", true},
                             {"nine", "in/dangling", false},
                             {"a", "loop", false},
                             {"loop", "hoop", false}});
  }
  for (const auto& [path, other, isSame] : rows) {
    EXPECT_EQ(IsSameFile(folder.Path(path), folder.Path(other)), isSame) << path << " " << other;
  }
  const std::string here = (fs::current_path() / "none").string();
  EXPECT_TRUE(IsSameFile("none", here) && !IsSameFile("nine", here));
}

#ifdef __linux__
// Opening the file then shows what exists. Two files that cannot be examined may be the same.
TEST(FileSystem, TakesAFileForThereWhereTheSystemWillNotSay) {
  const TestFolder folder;
  const std::string path = folder.Write("a", "");
  for (const auto& [error, isThere] : {std::pair(EACCES, true), {EIO, true}, {ENOENT, false}}) {
    InChild([&, number = error, there = isThere] {
      RefuseCall(SYS_newfstatat, number);
      EXPECT_EQ(FileExists(path), there);
      EXPECT_EQ(IsRegularFile(path), there);
      EXPECT_EQ(IsSameFile(path, path + "b"), there);
      EXPECT_FALSE(FolderExists(path));
    });
  }
}
#endif

TEST(FileSystem, MakesAndRemovesFolders) {
  const TestFolder folder;
  MakeFoldersFor(folder.Path("a/b/c"));
  EXPECT_TRUE(FolderExists(folder.Path("a/b")) && !FolderExists(folder.Path("a/b/c")));
  EXPECT_EQ(MakeFolder(folder.Path("a/b")), FolderMaking::exists);
  EXPECT_EQ(MakeFolder(folder.Path("a/c/d")), FolderMaking::failed);
  EXPECT_EQ(MakeFolder(folder.Path("a/c")), FolderMaking::made);
  EXPECT_FALSE(RemoveFileOrFolder(folder.Path("a")));
  for (const char* name : {"a/b", "a/c", "a", "a"}) {
    EXPECT_TRUE(RemoveFileOrFolder(folder.Path(name))) << name;
  }
  EXPECT_EQ(folder.Count(), 0);
}

TEST(FileSystem, FindsTheFoldersOfTheUser) {
  SKIP_ON_WINDOWS("they are found elsewhere");
  const std::string own = fs::read_symlink("/proc/self/exe").parent_path().string();
  const std::tuple<const char*, const char*, std::string> rows[] = {
      {"/config", "/home", "/config"},
      {"config", "/home", "/home/.config"},
      {"", "home", own},
      {"", "", own}};
  const std::string home = std::getenv("HOME") == nullptr ? "" : std::getenv("HOME");
  for (const auto& [configured, folder, expected] : rows) {
    SetVariable("XDG_CONFIG_HOME", configured);
    SetVariable("HOME", folder);
    EXPECT_EQ(UserConfigurationFolder(), expected);
  }
  SetVariable("HOME", home);
  EXPECT_EQ(DataFilePath("none"), own + "/none");
  EXPECT_EQ(DataFilePath("qvl_help.txt"), fs::canonical(QUORVEL_DATA "/qvl_help.txt"));
}

}  // namespace quorvel
