#include "files/output_file.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#ifdef _WIN32
#include <windows.h>
#endif

#include "files/read_file.h"
#include "support/platform.h"
#include "support/test_folder.h"

namespace quorvel {
namespace {

TEST(OutputFile, KeepsLinksAndModes) {
  SKIP_ON_WINDOWS("there are no such modes, and links are for administrators");
  const TestFolder folder;
  const std::string path = folder.Write("a", "old");
  ASSERT_EQ(::chmod(path.c_str(), 0640), 0);
  std::filesystem::create_symlink("a", folder.Path("link"));
  OutputFile file(folder.Path("link"), {});
  EXPECT_TRUE(file.Write("new") && file.Commit());
  EXPECT_EQ(folder.Read("a"), "new");
  EXPECT_TRUE(std::filesystem::is_symlink(folder.Path("link")));
  struct stat status = {};
  ASSERT_EQ(::stat(path.c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777U, 0640U);
}

TEST(OutputFile, WritesToANullDevice) {
  OutputFile device(NULL_DEVICE, {});
  EXPECT_TRUE(device.Write("x") && device.Commit()) << device.Why()->reason;
}

#ifdef _WIN32
// A file that another program has open: that it may be read by others is all the same.
TEST(OutputFile, LeavesAFileThatIsOpenElsewhere) {
  const std::string message = "The file is open in another program";
  for (const int sharing : {0, FILE_SHARE_READ | FILE_SHARE_WRITE}) {
    const TestFolder folder;
    const std::string path = folder.Write("\xC3\xA9 \xCF\x89", "old");
    const std::filesystem::path widePath = PathOfBytes(path);
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
  std::filesystem::create_hard_link(input, folder.Path("hard"));
  std::filesystem::create_directory(folder.Path("in"));
  if (!ON_WINDOWS) std::filesystem::create_symlink("a", folder.Path("link"));
  const std::pair<std::string, std::string> rows[] = {{"a", "input file"},
                                                      {"in/../a", "input file"},
                                                      {"hard", "input file"},
                                                      {"not yet", "index file"},
                                                      {"./not yet", "index file"},
                                                      {"b", ""},
                                                      {"link", ON_WINDOWS ? "" : "input file"}};
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
