#include "files/temporary_folder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "files/file_system.h"
#include "support/platform.h"
#include "support/scripted_interface.h"
#include "support/test_folder.h"

namespace quorvel {
namespace {

namespace fs = std::filesystem;

TEST(TemporaryFolder, TakesTheFirstFreeNumber) {
  SKIP_ON_WINDOWS("links are for administrators, and there are no such modes");
  const TestFolder base;
  fs::create_directory(base.Path("QVL001"));
  EXPECT_TRUE(FileExists(base.Write("QVL002", "a file")));
  fs::create_symlink("nowhere", base.Path("QVL003"));
  const std::string made = CreateTemporaryFolder(base.Path(""), "QVL");
  EXPECT_EQ(made, base.Path("QVL004"));
  struct stat status = {};
  ASSERT_EQ(::stat(made.c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777U, 0700U);
}

TEST(TemporaryFolder, EndsWithTheNumbersAndWithoutABase) {
  const TestFolder base;
  for (int n = 1001; n < 1999; ++n) {
    fs::create_directory(base.Path("X" + std::to_string(n).substr(1)));
  }
  EXPECT_EQ(CreateTemporaryFolder(base.Path(""), "X"), base.Path("X999"));
  EXPECT_EQ(CreateTemporaryFolder(base.Path(""), "X"), "");
  EXPECT_EQ(CreateTemporaryFolder(base.Path("none"), "X"), "");
}

TEST(TemporaryFolder, TellsWhatCannotBeRemoved) {
  // A file that stands in the way, and the message with "@" for the folder.
  const std::pair<std::string, std::string> rows[] = {
      {"word/document.xml/x", "Error when attempting to delete @/word/document.xml"},
      {"word/x", "@/word when attempting to delete folder "},
      {"x", "@ when attempting to delete folder "}};
  for (const auto& [inTheWay, message] : rows) {
    const TestFolder base;
    const std::string folder = CreateTemporaryFolder(base.Path(""), "QVL");
    fs::create_directories(base.Path("QVL001/word/document.xml"));
    (void)base.Write("QVL001/" + inTheWay, "x");
    ScriptedInterface ui;
    RemoveTemporaryFolder(folder, "word/document.xml", ui);
    EXPECT_TRUE(FolderExists(folder));
    EXPECT_EQ(ui.Said(folder), "Error: " + NativePath(message) + "\n");
  }
}

}  // namespace
}  // namespace quorvel
