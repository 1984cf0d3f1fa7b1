#include "engine/token_cache.h"

#include <gtest/gtest.h>

#include "support/latin.h"

namespace quorvel {
namespace {

constexpr HashSeed SEED = {0x2545F4914F6CDD1D, 0xD6E8FEB86659FD93, 0xA0761D6478BD642F, 99};

// Words with this beginning and end, which differ in four letters between them.
std::u16string WordsWith(std::u16string_view beginning, std::u16string_view end) {
  std::u16string text;
  for (int number = 0; number < 10000; ++number) {
    text += beginning;
    for (const int part : {1, 10, 100, 1000})
      text += static_cast<char16_t>(u'a' + number / part % 10);
    text.append(end).append(u" ");
  }
  return text;
}

// A token is looked up by its length, beginning and end, and a long one also by its middle.
TEST(TokenCache, TellsTokensApartByAllTheirCharacters) {
  const std::tuple<const char*, std::u16string, std::size_t> rows[] = {
      {"long ones with equal ends", WordsWith(u"abcd", u"wxyz"), 10000},
      {"of eight characters", WordsWith(u"ab", u"yz"), 10000},
      {"of five", WordsWith(u"z", u""), 10000},
      {"of one letter each", u"aaaab aaaaab aaaaaab aaaaaaab aaaaaaaab aaaaaaaaab", 6}};
  for (const auto& [name, text, different] : rows) {
    WordTable table;
    TokenCache cache(text, latin, table, nullptr, SEED);
    for (std::size_t begin = 0; begin < text.size();) {
      const std::size_t length = std::min(text.find(u' ', begin), text.size()) - begin;
      const EntryIndex entry = cache.MeaningOf(cache.KeyOf(begin, length)).entry;
      EXPECT_EQ(table.At(entry).word, text.substr(begin, length));
      begin += length + 1;
    }
    EXPECT_EQ(table.entries.size(), different) << name;
  }
}

}  // namespace
}  // namespace quorvel
