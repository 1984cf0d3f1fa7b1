#include "ui/text.h"

#include <gtest/gtest.h>

namespace quorvel {

TEST(Texts, KeepTheBytesOfAPathThatTheyCannotShow) {
  std::string path = "/tmp/caf\xE9.txt";
  TakePath(ShownPath(path), path);
  EXPECT_EQ(path, "/tmp/caf\xE9.txt");
}

}  // namespace quorvel
