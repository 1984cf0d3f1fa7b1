#include "files/read_file.h"

#include <gtest/gtest.h>

#include "files/digest.h"
#include "support/platform.h"
#include "support/scripted_conversation.h"
#include "support/test_folder.h"

namespace quorvel {
namespace {

TEST(ReadFile, ReadsPartsAndTellsFilesFromFolders) {
  const TestFolder folder;
  const std::string path = folder.Write("a", std::string(100000, 'x') + "end");
  EXPECT_FALSE(FileExists(folder.Path("")));
  EXPECT_FALSE(FolderExists(path));
  EXPECT_EQ(ReadFileBytes(path, 1000000)->substr(99999), "xend");
  EXPECT_EQ(*ReadFileBytes(path, 5), "xxxxx");
  EXPECT_EQ(ReadFileBytes(folder.Path(""), 5).Why().reason, "Is a directory");
  EXPECT_EQ(ReadFileBytes(folder.Path("b"), 5).Why().kind, FaultKind::missing);
}

TEST(ReadInput, ReadsOrdinaryFilesOnly) {
  const TestFolder folder;
  const std::string tooLong = folder.Write("long", "");
  std::filesystem::resize_file(PathOfBytes(tooLong), 2147483647);
  const std::pair<std::string, FaultKind> rows[] = {{"", FaultKind::missing},
                                                    {folder.Path("none"), FaultKind::missing},
                                                    {folder.Path(""), FaultKind::missing},
                                                    {NULL_DEVICE, FaultKind::notAFile},
                                                    {tooLong, FaultKind::tooLong}};
  SilentProgress nobody;
  for (const auto& [path, kind] : rows) {
    const Result<InputBytes> input = ReadInput(path, nobody);
    ASSERT_FALSE(bool(input)) << path;
    EXPECT_EQ(input.Why().kind, kind) << path;
    EXPECT_EQ(input.Why().file, path);
  }
  EXPECT_TRUE(ReadInput(folder.Write("empty", ""), nobody)->View().empty());
}

TEST(ReadInput, GivesAllBytesWithTheirDigestUnlessItIsStopped) {
  const TestFolder folder;
  const std::string bytes(5000000, 'x');
  const std::string path = folder.Write("a", bytes);
  ScriptedConversation ui;
  {
    const Result<InputBytes> input = ReadInput(path, ui);
    EXPECT_EQ(input->View(), bytes);
    EXPECT_EQ(input->Stamp(), StampOf(path));
    (void)folder.Write("a", "another text");
    EXPECT_EQ(InputDigest(*input).Text(), DigestOf(bytes)) << "of what was read";
    EXPECT_EQ(ComputeFileDigest(path).text, DigestOf("another text"));
  }
  ui.RequestStop();
  EXPECT_EQ(ReadInput(path, ui).Why().kind, FaultKind::stopped);
}

}  // namespace
}  // namespace quorvel
