#include "files/file_system.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#ifdef _WIN32
#include <windows.h>
#endif

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
  OutputFile file(folder.Path("link"));
  EXPECT_TRUE(file.Write("new") && file.Commit());
  EXPECT_EQ(folder.Read("a"), "new");
  EXPECT_TRUE(std::filesystem::is_symlink(folder.Path("link")));
  struct stat status = {};
  ASSERT_EQ(::stat(path.c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777U, 0640U);
}

TEST(OutputFile, WritesToANullDevice) {
  OutputFile device(NULL_DEVICE);
  EXPECT_TRUE(device.Write("x") && device.Commit()) << device.Error();
}

#ifdef _WIN32
// A file that another program has open: that it may be read by others is all the same.
TEST(OutputFile, LeavesAFileThatIsOpenElsewhere) {
  const std::string message = "The file is open in another program";
  for (const int sharing : {0, FILE_SHARE_READ | FILE_SHARE_WRITE}) {
    const TestFolder folder;
    const std::string path = folder.Write("\xC3\xA9 \xCF\x89", "old");
    const std::filesystem::path widePath = PathOfBytes(path);
    OutputFile early(path);
    EXPECT_TRUE(early.Write("new"));
    const HANDLE open =
        ::CreateFileW(widePath.c_str(), GENERIC_READ, static_cast<unsigned long>(sharing), nullptr,
                      OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    ASSERT_NE(open, INVALID_HANDLE_VALUE) << ::GetLastError();
    EXPECT_EQ(OutputFile(path).Error(), message);
    EXPECT_FALSE(early.Commit());
    EXPECT_EQ(early.Error(), message);
    EXPECT_EQ(ReadFileBytes(path).error, sharing == 0 ? message : "");
    ::CloseHandle(open);
    EXPECT_EQ(ReadFileBytes(path).bytes, "old");
  }
}

#endif

TEST(FileSystem, ReadsPartsAndTellsFilesFromFolders) {
  const TestFolder folder;
  const std::string path = folder.Write("a", std::string(100000, 'x') + "end");
  EXPECT_FALSE(FileExists(folder.Path("")));
  EXPECT_FALSE(FolderExists(path));
  EXPECT_EQ(ReadFileBytes(path).bytes.substr(99999), "xend");
  EXPECT_EQ(ReadFileBytes(path, 5).bytes, "xxxxx");
  EXPECT_EQ(ReadFileBytes(folder.Path("")).error, "Is a directory");
  std::string chunks;
  const auto takeLast = [&](std::string_view c) {
    chunks += c.back();
    return true;
  };
  EXPECT_EQ(ReadFileInChunks(path, 65536, takeLast), 0);
  EXPECT_EQ(chunks, "xd");
  EXPECT_EQ(ReadFileInChunks(folder.Path(""), 65536, takeLast), EISDIR);
}

}  // namespace
}  // namespace quorvel
