#include "util/large_pages.h"

#include <memory>

#ifdef __linux__
#include <sys/mman.h>
#endif

namespace quorvel {

#ifdef __linux__
// Only whole pages inside the memory may be advised: the surrounding bytes belong to other objects.
void AdviseLargePages(void* memory, std::size_t length) {
  constexpr std::size_t PAGE = 4096;
  constexpr std::size_t WORTH_IT = std::size_t{4} << 20U;
  if (length < WORTH_IT) return;
  std::align(PAGE, PAGE, memory, length);
  ::madvise(memory, length / PAGE * PAGE, MADV_HUGEPAGE);
}
#else
void AdviseLargePages(void* /*memory*/, std::size_t /*length*/) {}
#endif

template <typename Character>
void ReserveLarge(std::basic_string<Character>& text, std::size_t characters) {
  text.reserve(characters);
  AdviseLargePages(text.data(), characters * sizeof(Character));
}

template void ReserveLarge(std::string& text, std::size_t characters);
template void ReserveLarge(std::u16string& text, std::size_t characters);

}  // namespace quorvel
