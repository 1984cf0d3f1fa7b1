#include "util/ascii.h"

#include <gtest/gtest.h>

namespace quorvel {

TEST(Ascii, EndsBefore128) {
  for (const char last : {'\x00', '\x7F', '\x80', '\xFF'}) {
    const std::string text = std::string(7, 'a') + last;
    const bool isAscii = last >= 0;
    EXPECT_EQ(AreEightAscii(text.data()), isAscii) << int{last};
    EXPECT_EQ(IsAscii(std::string_view(text)), isAscii) << int{last};
    EXPECT_EQ(IsAscii(std::string_view(&last, 1)), isAscii) << int{last};
  }
  EXPECT_TRUE(IsAscii(std::u16string_view()));
  EXPECT_FALSE(IsAscii(std::u16string_view(u"\u0080")));
  EXPECT_FALSE(IsAscii(std::u16string_view(u"a\u0100")));
}

// The bytes after the view in memory do not belong to it.
TEST(Ascii, HasALengthAtTheFront) {
  for (std::size_t length = 0; length < 150; ++length) {
    const std::string ascii(length + 100, 'a');
    EXPECT_EQ(AsciiLength(std::string_view(ascii).substr(0, length)), length);
    EXPECT_EQ(AsciiLength(ascii.substr(0, length) + "\x80" + ascii), length);
  }
}

TEST(Ascii, KnowsCapitalsAndBlanks) {
  EXPECT_EQ(LowerAscii("@AMZ[`amz{\xC9"), "@amz[`amz{\xC9");
  EXPECT_EQ(TrimBlanks("  a b\t "), "a b\t");
}

}  // namespace quorvel
