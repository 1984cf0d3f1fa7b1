// A bit map with one bit for each index of a text, and searches for set bits.
//
// A search for the next blank takes a few instructions, however long the words in between are.
#pragma once

#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#include <limits>
#include <vector>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace quorvel {

inline constexpr std::size_t FLAG_COUNT = 64;
using Flags = std::array<std::uint8_t, FLAG_COUNT>;

// Packs 64 flags, each 0 or 1, into one bit each.
[[nodiscard]] inline std::uint64_t BitsOf(const Flags& flags) {
  std::uint64_t bits = 0;
#ifdef __SSE2__
  for (std::size_t i = 0; i < FLAG_COUNT; i += sizeof(__m128i)) {
    __m128i lanes;
    std::memcpy(&lanes, &flags[i], sizeof(lanes));
    const auto mask = static_cast<unsigned>(_mm_movemask_epi8(_mm_slli_epi16(lanes, 7)));
    bits |= std::uint64_t{mask} << i;
  }
#else
  for (std::size_t i = 0; i < FLAG_COUNT; ++i) bits |= std::uint64_t{flags[i]} << i;
#endif
  return bits;
}

// All indices are 0-based.
class BitMap {
 public:
  static constexpr std::size_t NONE = std::numeric_limits<std::size_t>::max();

  explicit BitMap(std::size_t length) : words_(length / BITS + 1) {}

  // Creates bits for `length` indices. A bit is set where `isSet(index)` is true.
  template <typename Predicate>
  BitMap(std::size_t length, Predicate isSet) : BitMap(length) {
    Flags flags{};
    for (std::size_t word = 0; word < words_.size(); ++word) {
      const std::size_t first = word * BITS;
      if (first + BITS <= length) {
        // A constant trip count lets the compiler vectorize the loop.
        for (std::size_t i = 0; i < BITS; ++i) flags[i] = isSet(first + i) ? 1 : 0;
      } else {
        flags = {};
        for (std::size_t i = 0; first + i < length; ++i) flags[i] = isSet(first + i) ? 1 : 0;
      }
      words_[word] = BitsOf(flags);
    }
  }

  void Set(std::size_t i) { words_[i / BITS] |= std::uint64_t{1} << (i % BITS); }

  void Clear(std::size_t i) { words_[i / BITS] &= ~(std::uint64_t{1} << (i % BITS)); }

  [[nodiscard]] bool IsSet(std::size_t i) const {
    return ((words_[i / BITS] >> (i % BITS)) & 1U) != 0;
  }

  void Prefetch(std::size_t i) const { __builtin_prefetch(&words_[i / BITS]); }

  // The 64 bits from index `i`, which becomes the lowest bit. Bits after the last index are 0.
  [[nodiscard]] std::uint64_t FirstBits(std::size_t i) const {
    const std::size_t before = i % BITS;
    const std::uint64_t bits = words_[i / BITS] >> before;
    const bool isAll = before == 0 || i / BITS + 1 == words_.size();
    return isAll ? bits : bits | words_[i / BITS + 1] << (BITS - before);
  }

  // The 64 bits up to index `i`, which becomes the highest bit. `i` must be at least 63.
  [[nodiscard]] std::uint64_t LastBits(std::size_t i) const {
    const std::size_t missing = BITS - 1 - i % BITS;
    const std::uint64_t bits = words_[i / BITS] << missing;
    return missing == 0 ? bits : bits | words_[i / BITS - 1] >> (BITS - missing);
  }

  // The index of the n-th set bit (n >= 1) in the range from `i` to `end` (exclusive), or NONE when
  // there are fewer. `end` must not exceed the length.
  [[nodiscard]] std::size_t NthFrom(std::size_t i, int n, std::size_t end) const {
    if (i >= end) return NONE;
    std::size_t word = i / BITS;
    std::uint64_t bits = words_[word] & (~std::uint64_t{0} << (i % BITS));
    while (true) {
      while (bits == 0) {
        if (++word * BITS >= end) return NONE;
        bits = words_[word];
      }
      if (--n == 0) break;
      bits &= bits - 1;
    }
    const std::size_t found = word * BITS + static_cast<std::size_t>(std::countr_zero(bits));
    return found < end ? found : NONE;
  }

  // The index of the last set bit in the range from `begin` to `i` (both inclusive), or NONE.
  [[nodiscard]] std::size_t LastUpTo(std::size_t i, std::size_t begin) const {
    std::size_t word = i / BITS;
    std::uint64_t bits = words_[word] & (~std::uint64_t{0} >> (BITS - 1 - i % BITS));
    while (bits == 0) {
      if (word * BITS <= begin) return NONE;
      bits = words_[--word];
    }
    const std::size_t found =
        word * BITS + BITS - 1 - static_cast<std::size_t>(std::countl_zero(bits));
    return found >= begin ? found : NONE;
  }

  // Calls `take(i)` for each index `i`, in ascending order, where both `i` and `i + 2` are set.
  // `take` may clear `i`.
  template <typename Take>
  void EachTwoApart(const Take& take) const {
    for (std::size_t word = 0; word < words_.size(); ++word) {
      const std::uint64_t next = word + 1 < words_.size() ? words_[word + 1] : 0;
      std::uint64_t bits = words_[word] & (words_[word] >> 2U | next << (BITS - 2));
      for (; bits != 0; bits &= bits - 1) {
        take(word * BITS + static_cast<std::size_t>(std::countr_zero(bits)));
      }
    }
  }

 private:
  static constexpr std::size_t BITS = FLAG_COUNT;

  std::vector<std::uint64_t> words_;
};

}  // namespace quorvel
