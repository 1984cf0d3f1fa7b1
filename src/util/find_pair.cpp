#include "util/find_pair.h"

#ifdef __SSE2__
#include <emmintrin.h>

#include <bit>
#include <cstdint>
#endif

namespace quorvel {
namespace {

#ifdef __SSE2__
template <typename Char>
__m128i Load(const Char* place) {
  return _mm_loadu_si128(reinterpret_cast<const __m128i*>(place));  // NOLINT(*-reinterpret-cast)
}

__m128i Lanes(char ch) { return _mm_set1_epi8(ch); }
__m128i Lanes(char16_t ch) { return _mm_set1_epi16(static_cast<std::int16_t>(ch)); }

template <typename Char>
__m128i Equal(__m128i a, __m128i b) {
  return sizeof(Char) == 1 ? _mm_cmpeq_epi8(a, b) : _mm_cmpeq_epi16(a, b);
}

// Advances `i` to the first pair and returns true. Without a pair, advances `i` past the part that
// was searched with vector instructions and returns false.
template <typename Char>
bool SkipInLanes(std::basic_string_view<Char> text, std::size_t& i, Char first, Char second) {
  constexpr std::size_t LANES = sizeof(__m128i) / sizeof(Char);
  constexpr std::size_t FOUR = 4 * LANES;
  const __m128i firsts = Lanes(first);
  const __m128i seconds = Lanes(second);
  // Tests for pairs that begin in a vector loaded `skipped` characters before `i`. Pairs that begin
  // before `i` are ignored.
  const auto look = [&](std::size_t skipped) {
    const Char* place = text.data() + i - skipped;
    const __m128i equal =
        _mm_and_si128(Equal<Char>(Load(place), firsts), Equal<Char>(Load(place + 1), seconds));
    const auto bytes = static_cast<unsigned>(_mm_movemask_epi8(equal));
    const unsigned found = bytes >> (skipped * sizeof(Char));
    if (found != 0) i += static_cast<std::size_t>(std::countr_zero(found)) / sizeof(Char);
    return found != 0;
  };
  // Without an early exit, four vectors take little longer than one.
  const auto fourHoldNone = [&] {
    __m128i any = _mm_setzero_si128();
    for (std::size_t k = 0; k < FOUR; k += LANES) {
      const Char* place = text.data() + i + k;
      any = _mm_or_si128(any, _mm_and_si128(Equal<Char>(Load(place), firsts),
                                            Equal<Char>(Load(place + 1), seconds)));
    }
    return _mm_movemask_epi8(any) == 0;
  };
  while (i + FOUR < text.size() && fourHoldNone()) i += FOUR;
  for (; i + LANES < text.size(); i += LANES) {
    if (look(0)) return true;
  }
  // The tail is searched with a vector that overlaps characters already searched.
  if (i + 1 >= text.size() || text.size() <= LANES) return false;
  if (look(i + LANES + 1 - text.size())) return true;
  i = text.size() - 1;
  return false;
}
#else
template <typename Char>
bool SkipInLanes(std::basic_string_view<Char>, std::size_t&, Char, Char) {
  return false;
}
#endif

template <typename Char>
std::size_t PlaceOfPair(std::basic_string_view<Char> text, std::size_t i, Char first, Char second) {
  if (SkipInLanes(text, i, first, second)) return i;
  for (; i + 1 < text.size(); ++i) {
    if (text[i] == first && text[i + 1] == second) return i;
  }
  return text.size();
}

}  // namespace

std::size_t FindPair(std::string_view text, std::size_t i, char first, char second) {
  return PlaceOfPair(text, i, first, second);
}

std::size_t FindPair(std::u16string_view text, std::size_t i, char16_t first, char16_t second) {
  return PlaceOfPair(text, i, first, second);
}

}  // namespace quorvel
