#include "util/md5.h"

#include <gtest/gtest.h>

#include <numeric>

namespace quorvel {
namespace {

std::string DigestText(std::string_view first, std::string_view second, std::string_view third) {
  Md5Context context = Md5Init();
  for (std::string_view piece : {first, second, third}) Md5Update(context, piece);
  return HexOfBytes(Md5Final(context), false, true, false);
}

// Published values, then the lengths at which the padding changes its shape.
TEST(Md5, Digests) {
  const std::pair<std::string, const char*> rows[] = {
      {"", "d41d8cd98f00b204e9800998ecf8427e"},
      {"abc", "900150983cd24fb0d6963f7d28e17f72"},
      {std::string(1000000, 'a'), "7707d6ae4e027c70eea2a935c2296f21"},
      {std::string(55, 'q'), "c932e1b1a97de537d13e0dddd96da42b"},
      {std::string(56, 'q'), "266ea7b18061f04ebe140d63ce648567"},
      {std::string(64, 'q'), "40bfc24c764552cb38083a62855664aa"}};
  for (const auto& [bytes, expected] : rows) {
    EXPECT_EQ(DigestText(bytes, {}, {}), expected) << bytes.size();
  }
}

// Each two cuts: the middle piece starts in a partly filled block and may complete it, fill others
// and leave a rest.
TEST(Md5, SplitUpdates) {
  std::string bytes(256, '\0');
  std::iota(bytes.begin(), bytes.end(), '\0');
  const std::string_view view = bytes;
  for (size_t first = 0; first <= 130; ++first) {
    for (size_t second = first; second <= bytes.size(); ++second) {
      ASSERT_EQ(DigestText(view.substr(0, first), view.substr(first, second - first),
                           view.substr(second)),
                "e2c865db4162bed963bfaa9ef6ac18f0")
          << "cut at " << first << " and " << second;
    }
  }
}

TEST(HexOfBytes, Options) {
  const std::array<uint8_t, 2> bytes = {0x0a, 0xbc};
  EXPECT_EQ(HexOfBytes(bytes, true, false, false), "0A BC");
  EXPECT_EQ(HexOfBytes(bytes, false, true, true), "a0cb");
}

}  // namespace
}  // namespace quorvel
