#include "util/text_hash.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace quorvel {
namespace {

constexpr unsigned BUCKET_BITS = 10;
constexpr HashSeed GUESSED = {0x0123456789ABCDEF, 0xFEDCBA9876543210, 0x1111111122222222, 99};

std::uint32_t HashOfBytes(const std::string& text, const HashSeed& seed) {
  return HashOf(std::string_view(text), seed);
}

// The number of texts in the fullest bucket.
std::size_t Crowd(const std::vector<std::string>& texts, const HashSeed& seed) {
  std::vector<std::size_t> buckets(std::size_t{1} << BUCKET_BITS);
  for (const std::string& text : texts) ++buckets[HashOfBytes(text, seed) % buckets.size()];
  return *std::max_element(buckets.begin(), buckets.end());
}

// Texts of an attacker who knows everything except the seed. With a guessed seed, all are in one
// bucket.
std::vector<std::string> Colliding(std::string text, std::size_t place) {
  std::vector<std::string> found;
  for (std::uint32_t number = 0; number < 1U << 20U; ++number) {
    std::memcpy(text.data() + place, &number, sizeof(number));
    if (HashOfBytes(text, GUESSED) % (1U << BUCKET_BITS) == 0) found.push_back(text);
  }
  return found;
}

TEST(TextHash, WhatCollidesWithOneSeedDoesNotWithOthers) {
  // With about one text for each bucket, 1,000 texts have at most 7 in one.
  constexpr std::size_t MOST = 12;
  const std::vector<HashSeed> seeds = {
      {0x2545F4914F6CDD1D, 0xD6E8FEB86659FD93, 0xA0761D6478BD642F, 0xE7037ED1A0B428DB},
      {GUESSED[0] ^ 1U, GUESSED[1], GUESSED[2], GUESSED[3]},
      {GUESSED[0], GUESSED[1] ^ std::uint64_t{1} << 63U, GUESSED[2], GUESSED[3]},
      RandomHashSeed()};
  const std::pair<std::string, std::size_t> rows[] = {
      {"aaaaaaa", 2}, {std::string(16, '\0'), 6}, {std::string(99, 'a'), 95}};
  for (const auto& [text, place] : rows) {
    const std::vector<std::string> texts = Colliding(text, place);
    EXPECT_EQ(Crowd(texts, GUESSED), texts.size()) << text;
    EXPECT_GT(texts.size(), 800U) << text;
    for (const HashSeed& seed : seeds) EXPECT_LE(Crowd(texts, seed), MOST) << text << seed[0];
  }
}

TEST(TextHash, EveryByteCounts) {
  for (const std::size_t length : {1, 7, 8, 15, 16, 17, 31, 32, 33, 48, 100}) {
    const std::string text(length, 'a');
    for (std::size_t i = 0; i < length; ++i) {
      std::string other = text;
      other[i] = 'b';
      EXPECT_NE(HashOfBytes(other, GUESSED), HashOfBytes(text, GUESSED)) << length << " " << i;
    }
    EXPECT_NE(HashOfBytes(text + 'a', GUESSED), HashOfBytes(text, GUESSED)) << length;
  }
}

TEST(TextHash, SeedsAreNotForetold) { EXPECT_NE(RandomHashSeed(), RandomHashSeed()); }

}  // namespace
}  // namespace quorvel
