#include "input/utf8_repair.h"

#include <gtest/gtest.h>

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

}  // namespace
}  // namespace quorvel
