#include "util/normalization.h"

#include <gtest/gtest.h>
#include <utf8proc.h>

#include <cstdlib>
#include <random>

#include "support/made_texts.h"
#include "util/utf8.h"

namespace quorvel {
namespace {

// The library's function, whose time is quadratic in the number of marks.
std::string NormalizedNaively(const std::string& text) {
  utf8proc_uint8_t* composed = nullptr;
  const auto* const bytes = reinterpret_cast<const utf8proc_uint8_t*>(text.data());
  const utf8proc_ssize_t length =
      utf8proc_map(bytes, std::ssize(text), &composed,
                   static_cast<utf8proc_option_t>(UTF8PROC_STABLE | UTF8PROC_COMPOSE));
  std::string result(reinterpret_cast<const char*>(composed), static_cast<std::size_t>(length));
  std::free(composed);
  return result;
}

TEST(Normalization, Composes) {
  const std::pair<const char*, const char*> rows[] = {
      {"cafe\u0301", "caf\u00E9"},
      {"\u0301e", "\u0301e"},
      {"a\u0323\u0302 a\u0302\u0323", "\u1EAD \u1EAD"},
      {"\u212B \u2126 \u0958", "\u00C5 \u03A9 \u0915\u093C"},
      {"\u1112\u1161\u11AB \uD558\u11AB", "\uD55C \uD55C"},
      {"\u0439 \u0438\u0306", "\u0439 \u0439"},
      {"\U0002F800", "\u4E3D"},
      {"e\u0301\U00050001\U000F0001\U0010FFFD", "\u00E9\U00050001\U000F0001\U0010FFFD"}};
  for (const auto& [text, composed] : rows) EXPECT_EQ(Normalized(text), composed);
}

TEST(Normalization, IsThatOfTheLibrary) {
  std::vector<std::string> characters = {"a", "\n", "\u00E9"};
  for (std::uint32_t codePoint = 0; codePoint < 0x32000; ++codePoint) {
    if (codePoint >= 0xD800 && codePoint < 0xE000) continue;
    std::string text = "e";
    AppendUtf8(text, codePoint);
    const std::string character = text.substr(1);
    text += "\u0301" + character + "\u0338";
    const std::string composed = NormalizedNaively(text);
    ASSERT_EQ(Normalized(text), composed) << std::hex << codePoint;
    if (composed != text && composed.find(character) == std::string::npos) {
      characters.push_back(character);
    }
  }
  std::mt19937 random(7);
  for (int i = 0; i < 5000; ++i) {
    std::string text;
    for (auto left = random() % 40; left > 0; --left)
      text += characters[random() % characters.size()];
    ASSERT_EQ(Normalized(text), NormalizedNaively(text)) << text;
  }
}

TEST(Normalization, TakesManyMarksInOneGo) {
  const std::string text = "e" + Repeated("\u0301\u0323", 100000);
  EXPECT_EQ(Normalized(text), "\u1EB9" + Repeated("\u0323", 99999) + Repeated("\u0301", 100000));
}

}  // namespace
}  // namespace quorvel
