#include "util/md5.h"

#include <gtest/gtest.h>

#include <numeric>
#include <tuple>
#include <vector>

#include "support/made_texts.h"

namespace quorvel {
namespace {

std::string DigestText(std::string_view first, std::string_view second, std::string_view third) {
  Md5Context context = Md5Init();
  for (std::string_view piece : {first, second, third}) Md5Update(context, piece);
  return HexOfBytes(Md5Final(context), false, true, false);
}

std::string EveryByte() {
  std::string bytes(256, '\0');
  std::iota(bytes.begin(), bytes.end(), '\0');
  return bytes;
}

// The seven published values, then the lengths at which the padding changes its shape.
TEST(Md5, Digests) {
  const std::tuple<const char*, std::string, const char*> rows[] = {
      {"empty", "", "d41d8cd98f00b204e9800998ecf8427e"},
      {"abc", "abc", "900150983cd24fb0d6963f7d28e17f72"},
      {"a", "a", "0cc175b9c0f1b6a831c399e269772661"},
      {"words", "message digest", "f96b697d7cb7938d525a2f31aaf161d0"},
      {"alphabet", "abcdefghijklmnopqrstuvwxyz", "c3fcd3d76192e4007dfb496cca67e13b"},
      {"letters and digits", "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789",
       "d174ab98d277d9f5a5611c2c9f419d9f"},
      {"digits", Repeated("1234567890", 8), "57edf4a22be3c955ac49da2e2107b67a"},
      {"length just fits", std::string(55, 'q'), "c932e1b1a97de537d13e0dddd96da42b"},
      {"length needs a block", std::string(56, 'q'), "266ea7b18061f04ebe140d63ce648567"},
      {"one byte short", std::string(63, 'q'), "7b7cb022759a9f373ef24bf92c05204f"},
      {"full block", std::string(64, 'q'), "40bfc24c764552cb38083a62855664aa"},
      {"every byte", EveryByte(), "e2c865db4162bed963bfaa9ef6ac18f0"},
      {"a million bytes", std::string(1000000, 'a'), "7707d6ae4e027c70eea2a935c2296f21"}};
  for (const auto& [name, bytes, expected] : rows) {
    EXPECT_EQ(DigestText(bytes, {}, {}), expected) << name;
  }
}

// Each two cuts: the middle piece starts in a partly filled block and may complete it, fill others
// and leave a rest.
TEST(Md5, SplitUpdates) {
  const std::string bytes = EveryByte();
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
  const std::vector<uint8_t> three = {0x0a, 0xbc, 0xf7};
  const std::tuple<std::vector<uint8_t>, bool, bool, bool, const char*> rows[] = {
      {three, false, false, false, "0ABCF7"}, {three, false, true, true, "a0cb7f"},
      {three, true, false, true, "A0 CB 7F"}, {three, true, true, false, "0a bc f7"},
      {{0x05}, true, false, false, "05"},     {{}, true, false, false, ""}};
  for (const auto& [bytes, withBlanks, lowerCase, nibblesSwapped, expected] : rows) {
    EXPECT_EQ(HexOfBytes(bytes, withBlanks, lowerCase, nibblesSwapped), expected);
  }
}

}  // namespace
}  // namespace quorvel
