#include "util/md5.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace quorvel {
namespace {

// In pieces of this length, after one of a single byte.
std::string DigestText(std::string_view bytes, std::size_t piece) {
  Md5Context context = Md5Init();
  Md5Update(context, bytes.substr(0, 1));
  bytes.remove_prefix(std::min<std::size_t>(1, bytes.size()));
  for (; !bytes.empty(); bytes.remove_prefix(std::min(piece, bytes.size()))) {
    Md5Update(context, bytes.substr(0, piece));
  }
  return HexOfBytes(Md5Final(context), false, true, false);
}

// Published values, then the lengths at which the padding changes.
TEST(Md5, Digests) {
  const std::pair<std::string, const char*> rows[] = {
      {"", "d41d8cd98f00b204e9800998ecf8427e"},
      {"abc", "900150983cd24fb0d6963f7d28e17f72"},
      {"12345678901234567890123456789012345678901234567890123456789012345678901234567890",
       "57edf4a22be3c955ac49da2e2107b67a"},
      {std::string(55, 'q'), "c932e1b1a97de537d13e0dddd96da42b"},
      {std::string(56, 'q'), "266ea7b18061f04ebe140d63ce648567"},
      {std::string(200, 'q'), "df02a36fd4a99febe469328b0fe2037f"}};
  for (const auto& [bytes, expected] : rows) {
    for (const std::size_t piece : {1, 55, 63, 64, 65, 200}) {
      EXPECT_EQ(DigestText(bytes, piece), expected) << bytes.size() << " by " << piece;
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
