#include "unicode/decoding.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "naive/places.h"
#include "support/made_texts.h"
#include "util/utf8.h"

namespace quorvel {
namespace {

using namespace std::string_literals;

TEST(Decoding, TellsEncodings) {
  const struct {
    const char* name;
    std::string bytes;
    std::string text;
    std::int64_t replaced = 0;
  } rows[] = {
      {"nothing", "", ""},
      {"a NUL among ASCII", "a\0b"s, "a\0b"s},
      {"UTF-8", "c\xC5\x93ur \xF0\x9F\x9A\xA2", "c\xC5\x93ur \xF0\x9F\x9A\xA2"},
      {"a mark makes any bytes UTF-8", "\xEF\xBB\xBF\xE9", "\xEF\xBF\xBD", 1},
      {"only the first mark is one", "\xEF\xBB\xBF\xEF\xBB\xBF", "\xEF\xBB\xBF"},
      {"little-endian", "\xFF\xFE\x53\x01z\0\x3D\xD8\xA2\xDE"s, "\xC5\x93z\xF0\x9F\x9A\xA2"},
      {"lone surrogates and half a unit", "\xFF\xFE\x3D\xD8z\0\xA2\xDE\x3D\xD8z"s,
       "\xEF\xBF\xBDz\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD", 4},
      {"one half twice", "\xFF\xFE\xA2\xDE\xA2\xDEz\0"s, "\xEF\xBF\xBD\xEF\xBF\xBDz", 2},
      {"Windows-1252", "\x93\xE9t\xE9\x94 \x81",
       "\xE2\x80\x9C\xC3\xA9t\xC3\xA9\xE2\x80\x9D \xC2\x81"},
      {"as much wrong as right", "\xC3\xA9\xE9", "\xC3\x83\xC2\xA9\xC3\xA9"},
      {"more right than wrong", "\xC3\xA9\xE9\xC3\xA9", "\xC3\xA9\xEF\xBF\xBD\xC3\xA9", 1},
      {"a cut sequence is two wrong bytes", "\xC3\xA9\xC3\xA9\xE2\x80",
       "\xC3\x83\xC2\xA9\xC3\x83\xC2\xA9\xC3\xA2\xE2\x82\xAC"},
      {"of one replacement", "\xC3\xA9\xC3\xA9\xC3\xA9\xE2\x80",
       "\xC3\xA9\xC3\xA9\xC3\xA9\xEF\xBF\xBD", 1}};
  for (const auto& row : rows) {
    const Utf8Text utf8 = TextOfBytes(row.bytes);
    EXPECT_EQ(utf8.text, row.text) << row.name;
    EXPECT_EQ(utf8.replaced, row.replaced) << row.name;
  }
  EXPECT_EQ(Decode("\xA4\xA6\xBD\xE9\x93", Charset::iso885915).text,
            "\xE2\x82\xAC\xC5\xA0\xC5\x93\xC3\xA9\xE2\x80\x9C");
}

// "?" stands for U+FFFD. There are as many as the Unicode standard recommends, also for its own
// examples.
TEST(Decoding, ReplacesEachBrokenSequenceOnce) {
  const std::pair<std::string, std::string> rows[] = {{"\xC0\xAF\xE0\x80\xBF\xF0\x81\x82"
                                                       "A",
                                                       "????????A"},
                                                      {"\xED\xA0\x80\xED\xBF\xBF\xED\xAF"
                                                       "A",
                                                       "????????A"},
                                                      {"\xF4\x91\x92\x93\xFF"
                                                       "A\x80\xBF"
                                                       "B",
                                                       "?????A??B"},
                                                      {"\xE1\x80\xE2\xF0\x91\x92\xF1\xBF"
                                                       "A",
                                                       "????A"},
                                                      {"\xF0\x9F\x9A", "?"}};
  for (const auto& [bytes, shown] : rows) {
    const Utf8Text utf8 = Decode(bytes, Charset::utf8);
    std::string got;
    for (std::size_t i = 0; i < utf8.text.size(); ++i) {
      const bool isReplaced = utf8.text.compare(i, 3, "\xEF\xBF\xBD") == 0;
      got += isReplaced ? '?' : utf8.text[i];
      if (isReplaced) i += 2;
    }
    EXPECT_EQ(got, shown);
    EXPECT_EQ(utf8.replaced, std::count(shown.begin(), shown.end(), '?'));
  }
}

// At any place among characters of two bytes, which are skipped many at a time.
TEST(Decoding, FindsABrokenSequenceAmongPairs) {
  const std::string letter = "\xD0\xB4";
  const std::pair<std::string, std::string> rows[] = {{"\xD0", "?"},
                                                      {"\xD0\xD0", "??"},
                                                      {"\x80", "?"},
                                                      {"\xC1", "?"},
                                                      {"\xE2\x80", "?"},
                                                      {"\xD0"
                                                       "A\x80",
                                                       "?A?"}};
  for (const auto& [broken, shown] : rows) {
    const auto replaced = std::count(shown.begin(), shown.end(), '?');
    for (int before = 0; before < 80; ++before) {
      const std::string front = Repeated(letter, before);
      const std::string rest = Repeated(letter, 80) + ".";
      const Utf8Text utf8 = TextOfBytes(front + broken + rest);
      EXPECT_EQ(utf8.text, front + naive::Replace(shown, "?", "\xEF\xBF\xBD") + rest) << before;
      EXPECT_EQ(utf8.replaced, replaced) << before;
    }
  }
}

TEST(Decoding, KeepsEveryCharacter) {
  std::string all;
  for (std::uint32_t codePoint = 0; codePoint <= 0x10FFFF; ++codePoint) {
    if (codePoint < 0xD800 || codePoint >= 0xE000) AppendUtf8(all, codePoint);
  }
  EXPECT_EQ(Decode(all, Charset::utf8).text, all);
  std::string sixteen = "\xFE\xFF";
  for (const char16_t unit : DecodeUtf8(all)) {
    (sixteen += static_cast<char>(unit >> 8)) += static_cast<char>(unit & 0xFF);
  }
  const Utf8Text utf8 = TextOfBytes(sixteen);
  EXPECT_TRUE(utf8.text == all);
  EXPECT_EQ(utf8.replaced, 0);
}

}  // namespace
}  // namespace quorvel
