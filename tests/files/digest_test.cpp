#include "files/digest.h"

#include <gtest/gtest.h>

#include "support/test_folder.h"

namespace quorvel {
namespace {

constexpr const char* OF_ABC = "900150983CD24FB0D6963F7D28E17F72";
constexpr const char* OF_A_MILLION = "7707D6AE4E027C70EEA2A935C2296F21";  // times "a"

TEST(Digest, IsThatOfAllBytes) {
  const std::string million(1000000, 'a');
  for (const auto& [bytes, digest] :
       {std::pair(std::string(), ""), {std::string("abc"), OF_ABC}, {million, OF_A_MILLION}}) {
    EXPECT_EQ(DigestOf(bytes), digest);
    const InputDigest ofInput(InputBytes("a", bytes));
    EXPECT_EQ(ofInput.Text(), digest);
    EXPECT_TRUE(ofInput.IsThere(std::chrono::milliseconds(0)));
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

}  // namespace
}  // namespace quorvel
