#include "lines/context_window.h"

#include <gtest/gtest.h>

#include <string>

namespace quorvel {

// A word at the end of the text may be recorded one place after it, but not further.
TEST(ContextWindow, IsEmptyOutsideTheText) {
  std::string text;
  for (int i = 0; i < 20; ++i) text += "it is so ";
  const ContextCutter<char> cutter(text, {2, false});
  const auto length = static_cast<std::int32_t>(text.size());
  std::string copies;
  for (const std::int32_t position : {-1, 0, length + 2, length + 100}) {
    EXPECT_EQ(cutter.Cut(Position{position}, 2, copies), "") << position;
  }
  EXPECT_EQ(cutter.Cut(FIRST_POSITION, 2, copies), "it is so it is");
  EXPECT_NE(cutter.Cut(PositionOf(text.size()), 2, copies), "");
}

}  // namespace quorvel
