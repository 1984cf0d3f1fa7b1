#include "util/find_pair.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>

namespace quorvel {
namespace {

TEST(FindPair, FindsTheFirstOneBehindAPlace) {
  std::mt19937 random(8);
  for (int round = 0; round < 20000; ++round) {
    std::string whole(random() % 70 + 2, '.');
    for (auto marks = random() % 4; marks > 0; --marks) whole[random() % whole.size()] = '-';
    for (auto pairs = random() % 3; pairs > 0; --pairs) {
      whole.replace(random() % (whole.size() - 1), 2, "-=");
    }
    whole += "=-=-=-=-=-=-=-=-=";  // what follows in memory is none of the text
    const std::string_view text = std::string_view(whole).substr(0, whole.size() - 17);
    const std::size_t from = random() % (text.size() + 1);
    ASSERT_EQ(FindPair(text, from, '-', '='), std::min(text.find("-=", from), text.size()))
        << text << " from " << from;
  }
  EXPECT_EQ(FindPair("", 0, '-', '='), 0U);
}

}  // namespace
}  // namespace quorvel
