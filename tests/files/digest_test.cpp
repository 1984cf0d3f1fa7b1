#include "files/digest.h"

#include <gtest/gtest.h>

#include "support/test_folder.h"

namespace quorvel {

constexpr const char* OF_ABC = "900150983CD24FB0D6963F7D28E17F72";

TEST(Digest, IsThatOfAllBytes) {
  const std::pair<std::string, const char*> rows[] = {
      {"", ""}, {"abc", OF_ABC}, {std::string(1000000, 'a'), "7707D6AE4E027C70EEA2A935C2296F21"}};
  for (const auto& [bytes, digest] : rows) {
    EXPECT_EQ(DigestOf(bytes), digest);
    EXPECT_EQ(InputDigest(InputBytes("a", bytes)).Text(), digest);
  }
}

TEST(Digest, HasThirtyTwoDigits) {
  const std::string digits = OF_ABC;
  EXPECT_TRUE(IsDigest(digits));
  EXPECT_FALSE(IsDigest(digits + "0") || IsDigest(digits.substr(1) + "a"));
}

TEST(Digest, OfAFileOrWhyThereIsNone) {
  const TestFolder folder;
  const std::tuple<std::string, const char*, int, const char*> rows[] = {
      {folder.Write("abc", "abc"), OF_ABC, 0, ""},
      {folder.Write("empty", ""), "", -1, "Zero-length file"},
      {folder.Path(""), "", -2, "Folder, not file"},
      {"C:", "", -3, "Drive, not file"},
      {"", "", -4, ""},
      {folder.Path("none"), "", -5, "File not readable"}};
  for (const auto& [path, text, status, message] : rows) {
    const FileDigest digest = ComputeFileDigest(path);
    EXPECT_EQ(digest.text + digest.message, std::string(text) + message) << path;
    EXPECT_EQ(digest.status, status) << path;
  }
}

}  // namespace quorvel
