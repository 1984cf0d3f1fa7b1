#include "util/find_pair.h"

#ifdef __SSE2__
#include <emmintrin.h>

#include <bit>
#include <cstdint>
#endif

namespace quorvel {
namespace {

#ifdef __SSE2__
constexpr std::size_t LANES = 8;

__m128i Load(const char16_t* place) {
  return _mm_loadu_si128(reinterpret_cast<const __m128i*>(place));  // NOLINT(*-reinterpret-cast)
}

__m128i Lanes(char16_t ch) { return _mm_set1_epi16(static_cast<std::int16_t>(ch)); }

// Moves `i` on to the first pair, or to where fewer than LANES pairs are left to
// look at; true in the first case.
bool SkipInLanes(std::u16string_view text, std::size_t& i, char16_t first, char16_t second) {
  const __m128i firsts = Lanes(first);
  const __m128i seconds = Lanes(second);
  for (; i + LANES < text.size(); i += LANES) {
    const char16_t* place = text.data() + i;
    const __m128i equal = _mm_and_si128(_mm_cmpeq_epi16(Load(place), firsts),
                                        _mm_cmpeq_epi16(Load(place + 1), seconds));
    const auto mask = static_cast<unsigned>(_mm_movemask_epi8(equal));
    if (mask != 0) {
      i += static_cast<std::size_t>(std::countr_zero(mask)) / sizeof(char16_t);
      return true;
    }
  }
  return false;
}
#else
bool SkipInLanes(std::u16string_view, std::size_t&, char16_t, char16_t) { return false; }
#endif

}  // namespace

std::size_t FindPair(std::u16string_view text, std::size_t i, char16_t first, char16_t second) {
  if (SkipInLanes(text, i, first, second)) return i;
  for (; i + 1 < text.size(); ++i) {
    if (text[i] == first && text[i + 1] == second) return i;
  }
  return text.size();
}

}  // namespace quorvel
