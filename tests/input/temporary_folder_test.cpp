#include "input/temporary_folder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "input/file_system.h"
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
  EXPECT_EQ(CreateTemporaryFolder("", "X"), "");
}

struct RemovalRow {
  const char* name;
  std::string inTheWay;  // an additional file below the folder
  std::string message;   // with "@" for the folder; empty when all can be removed
};

TEST(TemporaryFolder, IsRemovedOrTheUserIsTold) {
  const RemovalRow rows[] = {
      {"nothing", "", ""},
      {"body", "word/document.xml", ""},
      {"body is a folder that holds something", "word/document.xml/x",
       "Error when attempting to delete @/word/document.xml"},
      {"second file beside the body", "word/x", "@/word when attempting to delete folder "},
      {"second file in the folder", "x", "@ when attempting to delete folder "},
  };
  for (const auto& [name, inTheWay, message] : rows) {
    const TestFolder base;
    const std::string folder = CreateTemporaryFolder(base.Path(""), "QVL");
    const fs::path file = fs::path(folder) / (inTheWay.empty() ? "word/x" : inTheWay);
    fs::create_directories(file.parent_path());
    if (!inTheWay.empty()) (void)base.Write(file.string(), "x");
    ScriptedInterface ui;
    RemoveTemporaryFolder(folder, "word/document.xml", ui);
    EXPECT_EQ(FolderExists(folder), !message.empty()) << name;
    ASSERT_EQ(ui.questions.size(), message.empty() ? 0U : 1U) << name;
    if (message.empty()) continue;
    std::string expected = NativePath(message);
    EXPECT_EQ(ui.questions[0].text, expected.replace(expected.find('@'), 1, folder)) << name;
    EXPECT_EQ(ui.questions[0].title, "Error") << name;
  }
}

}  // namespace
}  // namespace quorvel
