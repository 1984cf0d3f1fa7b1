#include "util/bit_map.h"

#include <gtest/gtest.h>

#include <random>

namespace quorvel {
namespace {

TEST(BitMap, FindsWhatAWalkOverAllPlacesFinds) {
  std::mt19937 random(6);
  for (std::size_t length = 1; length <= 260; ++length) {
    std::vector<bool> is;
    while (is.size() < length) is.push_back(random() % (length % 90 + 1) == 0);
    const BitMap bits(length, [&is](std::size_t i) { return is[i]; });
    BitMap same(length);
    for (std::size_t i = 0; i < length; ++i) same.Set(i);
    for (std::size_t i = 0; i < length; ++i) {
      if (!is[i]) same.Clear(i);
      ASSERT_EQ(same.IsSet(i), is[i]) << i << " of " << length;
    }
    for (int round = 0; round < 100; ++round) {
      const std::size_t from = random() % length;
      const std::size_t edge = round % 4 == 0 ? length : random() % (length + 1);
      const auto n = static_cast<int>(random() % 4 + 1);
      std::size_t nth = from;
      for (int left = n; nth < edge && (!is[nth] || --left > 0);) ++nth;
      ASSERT_EQ(same.NthFrom(from, n, edge), nth < edge ? nth : BitMap::NONE)
          << from << " " << edge;
      std::size_t behind = from + 1;
      while (behind > edge && !is[behind - 1]) --behind;
      ASSERT_EQ(bits.LastUpTo(from, edge), behind > edge ? behind - 1 : BitMap::NONE) << from;
    }
  }
}

}  // namespace
}  // namespace quorvel
