#include "input/lost_characters.h"

#include <gtest/gtest.h>

#include "input/utf8_repair.h"
#include "util/utf8.h"

namespace quorvel {
namespace {

TEST(LostCharacters, AreThoseThatNoReadingKeeps) {
  const std::string blocks(130, 'a');
  const struct {
    const char* name;
    std::string bytes;
    bool isUtf8;
    std::int64_t lost;
    const char* file = "a.txt";
  } rows[] = {
      {"of other scripts", "\u0142\u20ac \u0436 \u4e00 \U0001F600", true, 5},
      {"beside long ASCII", blocks + "\u0153" + blocks + "\u0153" + blocks.substr(1), true, 2},
      {"beside bytes that are no UTF-8", "\xFF\u0153\xC5 \xE2\x82", true, 1},
      {"a mark at the beginning alone", "\uFEFFa\uFEFF", true, 1},
      {"taken for Windows-1252", "caf\u00e9 \u20ac", false, 2},
      {"Windows-1252", "caf\u00e9 \xE9", false, 0},
      {"ends too early", "\u00e9\xC3", false, 0},
      {"the head of a page", "<!doctype html>\u4e00</head>\u4e01", true, 1, "a.html"},
      {"a page without a head", "\u4e00", true, 1, "a.html"},
      {"a page that tells", "<meta charset=utf-8></head>\u00e9\u4e00", false, 1, "a.html"}};
  for (const auto& row : rows) {
    EXPECT_EQ(LostCharacters(InputBytes(row.file, row.bytes), row.isUtf8), row.lost) << row.name;
  }
}

// Each character alone. One that is not repaired is still UTF-8 after the repair, or has
// disappeared.
TEST(LostCharacters, AreThoseThatTheRepairLeaves) {
  for (std::uint32_t codePoint = 0x80; codePoint < 0x3000; ++codePoint) {
    const std::string original = EncodeUtf8(std::u16string(1, static_cast<char16_t>(codePoint)));
    std::string text = original + ".";
    RepairUtf8(text);
    PlainPunctuation(text);
    const bool isDropped = text == "." && !IsControl(codePoint);
    const bool isLost = isDropped || text == original + ".";
    EXPECT_EQ(CharactersNotRepaired(original), isLost ? 1 : 0) << codePoint << text;
  }
}

}  // namespace
}  // namespace quorvel
