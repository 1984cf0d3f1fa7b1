#include "util/md5.h"

#include <gtest/gtest.h>

namespace quorvel {
namespace {

std::string DigestText(std::string_view bytes) {
  Md5Context context = Md5Init();
  Md5Update(context, bytes);
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
    EXPECT_EQ(DigestText(bytes), expected) << bytes.size();
  }
}

TEST(HexOfBytes, Options) {
  const std::array<uint8_t, 2> bytes = {0x0a, 0xbc};
  EXPECT_EQ(HexOfBytes(bytes, true, false, false), "0A BC");
  EXPECT_EQ(HexOfBytes(bytes, false, true, true), "a0cb");
}

}  // namespace
}  // namespace quorvel
