#include "support/failing_new.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace quorvel {
namespace {

struct Requests {
  std::atomic<bool> counts = false;
  std::atomic<long> count = 0;
  std::atomic<long> failing = 0;
  std::atomic<bool> lasting = false;
};

// "new" can reach nothing but a global.
// NOLINTNEXTLINE(cppcoreguidelines-avoid-non-const-global-variables)
constinit Requests requests;

}  // namespace

FailingNew::FailingNew(long number, bool lasting) {
  requests.count = 0;
  requests.failing = number;
  requests.lasting = lasting;
  requests.counts = true;
}

FailingNew::~FailingNew() { requests.counts = false; }

long FailingNew::Count() { return requests.count; }

FailingNew::Pause::Pause() : counted_(requests.counts.exchange(false)) {}

FailingNew::Pause::~Pause() { requests.counts = counted_; }

namespace {

[[maybe_unused]] bool Fails() {
  if (!requests.counts) return false;
  const long number = ++requests.count;
  const long failing = requests.failing;
  return failing != 0 && (number == failing || (requests.lasting && number > failing));
}

}  // namespace
}  // namespace quorvel

#ifndef __SANITIZE_ADDRESS__
void* operator new(std::size_t length) {
  void* const memory = quorvel::Fails() ? nullptr : std::malloc(length == 0 ? 1 : length);
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}

void operator delete(void* memory) noexcept { std::free(memory); }

void operator delete(void* memory, std::size_t /*length*/) noexcept { std::free(memory); }
#endif
