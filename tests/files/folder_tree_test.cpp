#include "files/folder_tree.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "support/platform.h"
#include "support/test_folder.h"

namespace quorvel {
TEST(FolderTree, HoldsAllOrdinaryFilesInTheOrderOfTheirPaths) {
  SKIP_ON_WINDOWS("links are for administrators");
  const TestFolder folder;
  fs::create_directories(folder.Path("tree/b/c"));
  fs::create_directory(folder.Path("tree/empty"));
  for (const char* name : {"tree/z", "tree/b/y", "tree/b/c/x", "tree/a.txt", "outside"}) {
    (void)folder.Write(name, "x");
  }
  fs::create_symlink("../outside", folder.Path("tree/link"));
  fs::create_symlink("..", folder.Path("tree/b/circle"));
  fs::create_symlink("nowhere", folder.Path("tree/dangling"));
  ASSERT_EQ(std::system(("mkfifo '" + folder.Path("tree/pipe") + "'").c_str()), 0);
  const FolderTree tree = FilesBelow(folder.Path("tree"));
  const std::string base = folder.Path("tree/");
  EXPECT_EQ(tree.files,
            (std::vector{base + "a.txt", base + "b/c/x", base + "b/y", base + "link", base + "z"}));
  EXPECT_TRUE(tree.faults.empty());
}

TEST(FolderTree, NamesFoldersThatCannotBeRead) {
  const TestFolder folder;
  const FolderTree tree = FilesBelow(folder.Path("none"));
  ASSERT_EQ(tree.faults.size(), 1U);
  EXPECT_EQ(tree.faults[0].file + tree.faults[0].reason,
            folder.Path("none") + "No such file or directory");
}

}  // namespace quorvel
