#include "files/temporary_folder.h"

#include <gtest/gtest.h>

#include "files/file_system.h"
#include "support/platform.h"
#include "support/refused_calls.h"
#include "support/test_folder.h"

namespace quorvel {
TEST(TemporaryFolder, TakesTheFirstFreeNumber) {
  SKIP_ON_WINDOWS("links are for administrators, and there are no such modes");
  const TestFolder base;
  fs::create_directory(base.Path("X001"));
  EXPECT_TRUE(FileExists(base.Write("X002", "a file")));
  fs::create_symlink("nowhere", base.Path("X003"));
  for (int n = 1004; n <= 1999; ++n) {
    const std::string made = CreateTemporaryFolder(base.Path(""), "X");
    ASSERT_EQ(made, base.Path("X" + std::to_string(n).substr(1)));
    EXPECT_EQ(fs::status(made).permissions(), fs::perms(0700));
  }
  EXPECT_EQ(CreateTemporaryFolder(base.Path(""), "X"), "");
  EXPECT_EQ(CreateTemporaryFolder("", "X"), "");
}

TEST(TemporaryFolder, TellsWhatCannotBeRemoved) {
  // The file that is in the way, and what stays in the folder.
  const std::tuple<std::string, std::string, FaultKind> rows[] = {
      {"word/document.xml/x", "word/document.xml", FaultKind::fileNotRemoved},
      {"word/x", "word", FaultKind::folderNotRemoved},
      {"x", "", FaultKind::folderNotRemoved}};
  for (const auto& [inTheWay, stays, kind] : rows) {
    const TestFolder base;
    const std::string folder = CreateTemporaryFolder(base.Path(""), "QVL");
    fs::create_directories(base.Path("QVL001/word/document.xml"));
    (void)base.Write("QVL001/" + inTheWay, "x");
    const std::optional<Fault> fault = RemoveTemporaryFolder(folder, "word/document.xml");
    ASSERT_TRUE(fault.has_value()) << inTheWay;
    EXPECT_EQ(fault->kind, kind) << inTheWay;
    EXPECT_EQ(fault->file, stays.empty() ? folder : JoinPath(folder, stays));
  }
}

TEST(TemporaryFile, GivesBackWhatWasWrittenAndLeavesNothing) {
  const TestFolder base;
  SetVariable("TMPDIR", base.Path(""));
  {
    const TemporaryFile file("QVL", "a/b");
    EXPECT_EQ(base.Count(), 0);
    EXPECT_TRUE(file.Write("one ") && file.Write("two"));
    EXPECT_EQ(*file.ReadBack(100), "one two");
    EXPECT_EQ(*file.ReadBack(5), "one t");
  }
  EXPECT_EQ(base.Count(), 0);
  SetVariable("TMPDIR", "");
  SKIP_ON_WINDOWS("no variable names that folder");
  SetVariable("TMPDIR", base.Path("none"));
  const TemporaryFile nowhere("QVL", "a/b");
  SetVariable("TMPDIR", "");
  EXPECT_FALSE(nowhere.HasFolder() || nowhere.Write("x") || nowhere.ReadBack(1));
#ifdef __linux__
  InChild([] {
    ::close(0);  // a program can be started so; the file gets the number 0
    const TemporaryFile first("QVL", "a");
    EXPECT_TRUE(first.Write("one") && *first.ReadBack(3) == "one");
  });
#endif
}

}  // namespace quorvel
