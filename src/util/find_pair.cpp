#include "util/find_pair.h"

#ifdef __SSE2__
#include <emmintrin.h>

#include <bit>
#endif

namespace quorvel {
namespace {

#ifdef __SSE2__
__m128i Load(const char* place) {
  return _mm_loadu_si128(reinterpret_cast<const __m128i*>(place));  // NOLINT(*-reinterpret-cast)
}

// Moves `i` on to the first pair, or behind the last one that may be looked at with others in
// one go; true in the first case.
bool SkipInLanes(std::string_view text, std::size_t& i, char first, char second) {
  constexpr std::size_t LANES = sizeof(__m128i);
  const __m128i firsts = _mm_set1_epi8(first);
  const __m128i seconds = _mm_set1_epi8(second);
  // Whether pairs begin at `i` and the places behind it: those at the `skipped` places before
  // it are looked at, too, but do not count.
  const auto look = [&](std::size_t skipped) {
    const char* place = text.data() + i - skipped;
    const __m128i equal = _mm_and_si128(_mm_cmpeq_epi8(Load(place), firsts),
                                        _mm_cmpeq_epi8(Load(place + 1), seconds));
    const unsigned found = static_cast<unsigned>(_mm_movemask_epi8(equal)) >> skipped;
    if (found != 0) i += static_cast<std::size_t>(std::countr_zero(found));
    return found != 0;
  };
  for (; i + LANES < text.size(); i += LANES) {
    if (look(0)) return true;
  }
  // The end is looked at together with what stands before it.
  if (i + 1 >= text.size() || text.size() <= LANES) return false;
  if (look(i + LANES + 1 - text.size())) return true;
  i = text.size() - 1;
  return false;
}
#else
bool SkipInLanes(std::string_view, std::size_t&, char, char) { return false; }
#endif

}  // namespace

std::size_t FindPair(std::string_view text, std::size_t i, char first, char second) {
  if (SkipInLanes(text, i, first, second)) return i;
  for (; i + 1 < text.size(); ++i) {
    if (text[i] == first && text[i + 1] == second) return i;
  }
  return text.size();
}

}  // namespace quorvel
