#include "input/utf8_repair.h"

#include <gtest/gtest.h>

#include <random>

#include "naive/naive_forms.h"

namespace quorvel {
namespace {

// Both repairs, one after the other as every text gets them.
std::string Repaired(std::string text) {
  RepairUtf8(text);
  PlainPunctuation(text);
  return text;
}

TEST(Utf8Repair, MakesSingleBytesAndPlainPunctuation) {
  const char* rows[][3] = {
      {"letters of both cases", "caf\xC3\xA9 \xC3\x80\xC3\xBF", "caf\xE9 \xC0\xFF"},
      {"control characters vanish", "z\xC2\x80.\xC2\x9F;\xC2\xA0\xC2\xBF", "z.;\xA0\xBF"},
      {"c with caron", "\xC4\x8D\xC4\x8D\xC4\x8C", "cc\xC4\x8C"},
      {"an odd pair ends its own pass", "\xC2.\xC2\xA0\xC3\xA9\xC3.\xC3\xA8",
       "\xC2.\xC2\xA0\xE9\xC3.\xC3\xA8"},
      {"a pair that moved up waits for its kind", "\xC2\x85\xC2\xA9.\xC2\xA9", "\xA9.\xA9"},
      {"a letter that is a lead byte pairs with what follows", "\xC3\x83\xC2\xA9", "\xC3\xA9"},
      {"hyphens", "\xE2\x80\x90\xE2\x80\x91\xE2\x80\x92\xE2\x80\x93", "----"},
      {"dashes and lines", "\xE2\x80\x94.\xE2\x80\x95.\xE2\x80\x96\xE2\x80\x97", " -- .--.|\x89"},
      {"single quotes", "\xE2\x80\x98\xE2\x80\x99\xE2\x80\x9A\xE2\x80\x9B", "''''"},
      {"double quotes", "\xE2\x80\x9C\xE2\x80\x9D\xE2\x80\x9E\xE2\x80\x9F", R"("""")"},
      {"bullet, ellipsis, angles", "\xE2\x80\xA2\xE2\x80\xA6\xE2\x80\xB9\xE2\x80\xBA", " . ...<>"},
      {"a dagger first: only that goes", "\xE2\x80\xA0.\xE2\x80\x99", ".\xE2\x80\x99"},
  };
  for (const auto& [name, text, expected] : rows) EXPECT_EQ(Repaired(text), expected) << name;
}

// Of few different bytes, so that replacements form pairs again and again, and with some that are
// met first again and again, so that the search goes on for long.
std::string TangledText(std::mt19937& random) {
  static constexpr std::array<std::string_view, 12> PARTS = {"\xC2", "\xC2\xC2", "\xC3",     "\x80",
                                                             "\x85", "\x83",     "\x83\x83", "\xA9",
                                                             "\xA3", "\xC2\x80", "\xC3\x83", "x"};
  std::string text;
  const std::size_t different = 2 + random() % (PARTS.size() - 1);
  const std::size_t first = random() % PARTS.size();
  for (std::size_t left = random() % 120; left > 0; --left) {
    text += PARTS[(first + random() % different) % PARTS.size()];
  }
  return text;
}

// Longer and longer runs, each of which is met when it has become a pair.
std::string Stairs(std::string_view lead, std::string_view next, int steps) {
  std::string text;
  for (int step = 1; step <= steps; ++step) {
    for (int i = 0; i < step; ++i) text += lead;
    for (int i = 0; i < step; ++i) text += next;
  }
  return text;
}

TEST(Utf8Repair, IsItsNaiveForm) {
  std::mt19937 random(1);
  constexpr int COUNT = 40000;
  std::vector<std::string> texts;
  texts.reserve(COUNT);
  for (int i = 0; i < COUNT; ++i) texts.push_back(TangledText(random));
  for (const char* lead : {"\xC2", "\xC3", "\xC3\x83", "\xC2\xC2"}) {
    for (const char* next : {"\x80", "\x83", "\xA9", "\x80\x81", "\xA9\x83"}) {
      texts.push_back(Stairs(lead, next, 30));
      texts.push_back("\xC2\x80" + Stairs(lead, next, 30));
    }
  }
  for (std::string& text : texts) {
    const std::string expected = naive::RepairUtf8(text);
    const std::string original = text;
    RepairUtf8(text);
    ASSERT_EQ(text, expected) << testing::PrintToString(original);
  }
}

}  // namespace
}  // namespace quorvel
