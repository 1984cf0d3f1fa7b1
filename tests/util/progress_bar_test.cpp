#include "util/progress_bar.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

namespace quorvel {
namespace {

TEST(ProgressBar, HasItsCaptions) {
  const std::pair<int, std::string> rows[] = {{-1, ">" + std::string(40, ' ')},
                                              {0, ">" + std::string(40, ' ')},
                                              {1, ">" + std::string(39, ' ')},
                                              {39, std::string(38, '-') + "> "},
                                              {41, std::string(40, '-') + ">"}};
  for (const auto& [cells, bar] : rows) EXPECT_EQ(ProgressCaption(cells), "[" + bar + "]");
}

// Every cell is shown as soon as it is reached, halves rounded to even ones, and none twice.
TEST(ProgressBar, ShowsEachCellOnce) {
  for (const std::int64_t total : {1, 7, 39, 40, 79, 80, 100, 4000, 12345}) {
    for (const std::int64_t step : {1, 3, 50}) {
      struct : SilentProgress {
        std::vector<std::string> captions;
        void ShowBar(std::string_view caption) override { captions.emplace_back(caption); }
      } progress;
      std::vector<std::string> expected = {ProgressCaption(0)};
      {
        ProgressBar bar(progress);
        for (std::int64_t current = 0; current <= total; current += step) {
          const int threshold = step == 1 ? 0 : 7;
          bar.Update(current, total, threshold);
          const double cells = 40.0 * static_cast<double>(current) / static_cast<double>(total);
          const std::string caption = ProgressCaption(static_cast<int>(std::nearbyint(cells)));
          if (total >= threshold && caption != expected.back()) expected.push_back(caption);
          ASSERT_EQ(progress.captions, expected) << current << " of " << total;
        }
        bar.Update(1, 0, 0);
      }
      expected.emplace_back();
      EXPECT_EQ(progress.captions, expected);
    }
  }
}

}  // namespace
}  // namespace quorvel
