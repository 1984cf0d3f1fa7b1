#include "util/progress_bar.h"

#include <gtest/gtest.h>

#include <cmath>

#include "support/scripted_conversation.h"

namespace quorvel {

TEST(ProgressBar, HasItsCaptions) {
  EXPECT_EQ(ProgressCaption(-1), "[>" + std::string(40, ' ') + "]");
  EXPECT_EQ(ProgressCaption(39), "[" + std::string(38, '-') + "> ]");
  EXPECT_EQ(ProgressCaption(41), "[" + std::string(40, '-') + ">]");
}

// Every cell is shown when it is reached, and only once. Halves are rounded to even.
TEST(ProgressBar, ShowsEachCellOnce) {
  for (const std::int64_t total : {6, 7, 39, 80, 100, 12345}) {
    ScriptedConversation progress;
    std::vector<std::string> expected = {ProgressCaption(0)};
    {
      ProgressBar bar(progress);
      for (std::int64_t current = 0; current <= total; current += total < 1000 ? 1 : 50) {
        bar.Update(current, total, 7);
        const double cells = 40.0 * static_cast<double>(current) / static_cast<double>(total);
        const std::string caption = ProgressCaption(static_cast<int>(std::nearbyint(cells)));
        if (total >= 7 && caption != expected.back()) expected.push_back(caption);
        ASSERT_EQ(progress.bars, expected) << current << " of " << total;
      }
      bar.Update(1, 0, 0);
    }
    expected.emplace_back();
    EXPECT_EQ(progress.bars, expected);
  }
}

}  // namespace quorvel
