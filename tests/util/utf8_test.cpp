#include "util/utf8.h"

#include <gtest/gtest.h>

namespace quorvel {

// Invalid UTF-8 is read byte by byte as Windows-1252.
TEST(Utf8, IsDecodedWhereItIsWellFormed) {
  const std::tuple<const char*, std::string, std::u16string, bool> rows[] = {
      {"the shortest and longest of each length",
       "\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xEF\xBF\xBF\xF0\x90\x80\x80\xF4\x8F\xBF\xBF",
       u"\x7F\x80\x7FF\x800\xFFFF\U00010000\U0010FFFF", true},
      {"around the surrogates", "\xED\x9F\xBF\xEE\x80\x80", u"\xD7FF\xE000", true},
      {"an overlong letter", "\xC1\x81", u"\xC1\x81", false},
      {"overlong in three", "\xE0\x9F\xBF", u"\xE0\x178\xBF", false},
      {"a surrogate", "\xED\xA0\x80", u"\xED\xA0\x20AC", false},
      {"beyond the last", "\xF4\x90\x80\x80", u"\xF4\x90\x20AC\x20AC", false},
      {"a first byte beyond all", "\xF5\x80", u"\xF5\x20AC", false},
      {"a first byte of five", "\xF9\x80\x80\x80", u"\xF9\x20AC\x20AC\x20AC", false},
      {"continuations alone", "\x91\x80\x80\x80", u"\x2018\x20AC\x20AC\x20AC", false},
      {"cut", "a\xE2\x82", u"a\xE2\x201A", false},
      {"no continuation", "\xC3(", u"\xC3(", false}};
  for (const auto& [name, bytes, text, comesBack] : rows) {
    EXPECT_EQ(DecodeUtf8(bytes), text) << name;
    EXPECT_EQ(EncodeUtf8(text) == bytes, comesBack) << name;
  }
  EXPECT_EQ(EncodeUtf8(u"\xD83D a\xDC00\xDFFF"), "\xEF\xBF\xBD a\xEF\xBF\xBD\xEF\xBF\xBD");
  EXPECT_EQ(EncodeUtf8(u"\xDBFF\xDBFF\xDFFF\xDBFF"), "\xEF\xBF\xBD\xF4\x8F\xBF\xBF\xEF\xBF\xBD");
  for (const char32_t codePoint : {0xD7FF, 0xFFFF, 0x10000, 0x103FF, 0x10400, 0x10FFFF}) {
    std::u16string text;
    AppendCodePoint(text, codePoint);
    std::size_t place = 0;
    EXPECT_EQ(NextCodePoint(text, place), codePoint);
    EXPECT_EQ(place, text.size());
  }
  EXPECT_EQ(CharacterAt(u"a\U0001F600é", 1), "\xF0\x9F\x98\x80");
  EXPECT_EQ(CharacterAt(u"a\U0001F600é", 3), "\xC3\xA9");
}

}  // namespace quorvel
