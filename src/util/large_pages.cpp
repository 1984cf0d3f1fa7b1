#include "util/large_pages.h"

#include <memory>

#ifdef __linux__
#include <sys/mman.h>
#include <unistd.h>
#endif

namespace quorvel {

#ifdef __linux__
// A page that is used before it is advised stays small. So the rest of the heap is advised too: the
// next text begins there, and the heap's own records before it are written first.
void AdviseLargePages(void* memory, std::size_t length) {
  constexpr std::size_t PAGE = 4096;
  constexpr std::size_t WORTH_IT = std::size_t{4} << 20U;
  if (length < WORTH_IT) return;
  char* const heapEnd = static_cast<char*>(::sbrk(0));
  std::align(PAGE, PAGE, memory, length);
  char* const begin = static_cast<char*>(memory);
  const bool isInHeap = begin < heapEnd;
  ::madvise(begin, isInHeap ? static_cast<std::size_t>(heapEnd - begin) : length / PAGE * PAGE,
            MADV_HUGEPAGE);
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
