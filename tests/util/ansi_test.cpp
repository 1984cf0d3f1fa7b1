#include "util/ansi.h"

#include <gtest/gtest.h>

namespace quorvel {

// In any surroundings and at any place of a long text.
TEST(Ansi, HasOneCharacterForEachByte) {
  const std::u16string high =
      u"\u20AC\x81\u201A\u0192\u201E\u2026\u2020\u2021\u02C6\u2030\u0160\u2039\u0152\x8D\u017D\x8F"
      u"\x90\u2018\u2019\u201C\u201D\u2022\u2013\u2014\u02DC\u2122\u0161\u203A\u0153\x9D\u017E"
      u"\u0178";
  for (int byte = 0; byte < 256; ++byte) {
    const bool isHigh = byte >= 0x80 && byte < 0xA0;
    const auto character =
        isHigh ? high[static_cast<std::size_t>(byte - 0x80)] : static_cast<char16_t>(byte);
    for (const std::size_t place : {0, 63, 64, 100, 1023, 1024}) {
      std::string bytes(1100, 'a');
      std::u16string text(1100, u'a');
      bytes[place] = static_cast<char>(byte);
      text[place] = character;
      ASSERT_EQ(DecodeAnsi(bytes), text) << byte;
      ASSERT_EQ(EncodeAnsi(text), bytes) << byte;
      // A character outside Windows-1252 becomes one "?".
      ASSERT_EQ(EncodeAnsi(text.substr(0, place) + u"\U0001F600" + text.substr(place)),
                bytes.substr(0, place) + "?" + bytes.substr(place));
    }
  }
  EXPECT_EQ(EncodeAnsi(u"\x80\x100\xD83D\xDC00z\xDC00\xDC00\xD83D"), "???z???");
}

}  // namespace quorvel
