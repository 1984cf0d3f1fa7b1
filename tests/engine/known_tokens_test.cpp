#include "engine/known_tokens.h"

#include <gtest/gtest.h>

#include <set>

namespace quorvel {
namespace {

constexpr HashSeed SEED = {0x2545F4914F6CDD1D, 0xD6E8FEB86659FD93, 0xA0761D6478BD642F, 99};

// Words with the same beginning and end, told apart by `digits` letters between them.
std::u16string Words(std::u16string_view beginning, int count, int digits,
                     std::u16string_view end) {
  std::u16string text;
  for (int number = 0; number < count; ++number) {
    text += beginning;
    for (int k = 0, rest = number; k < digits; ++k, rest /= 10) {
      text += static_cast<char16_t>(u'a' + rest % 10);
    }
    text.append(end).append(u" ");
  }
  return text;
}

// A token is looked up by its length and both its ends, a long one by what is between them, too.
TEST(KnownTokens, TellTokensApartByAllTheirCharacters) {
  const struct {
    const char* name;
    std::u16string text;
    std::size_t different;
  } rows[] = {
      {"long ones with equal ends", Words(u"abcd", 10000, 4, u"wxyz"), 10000},
      {"longer ones", Words(u"abcdefghijk", 10000, 4, u"lmnopqrstuvwxyz"), 10000},
      {"of eight characters", Words(u"ab", 10000, 4, u"yz"), 10000},
      {"of five", Words(u"z", 10000, 4, u""), 10000},
      {"of one letter each", u"aaaab aaaaab aaaaaab aaaaaaab aaaaaaaab aaaaaaaaab", 6},
      {"the same again", Words(u"abcd", 100, 2, u"wxyz") + Words(u"abcd", 100, 2, u"wxyz"), 100},
  };
  for (const auto& [name, text, different] : rows) {
    WordTable table;
    KnownTokens known(text, table, nullptr, SEED);
    std::set<std::int32_t> entries;
    for (std::size_t begin = 0; begin < text.size();) {
      const std::size_t length = std::min(text.find(u' ', begin), text.size()) - begin;
      entries.insert(known.MeaningOf(known.KeyOf(begin, length)).entry);
      begin += length + 1;
    }
    EXPECT_EQ(entries.size(), different) << name;
    EXPECT_EQ(table.entries.size(), different) << name;
  }
}

}  // namespace
}  // namespace quorvel
