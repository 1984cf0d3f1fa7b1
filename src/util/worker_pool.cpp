#include "util/worker_pool.h"

#include <algorithm>

namespace quorvel {

namespace {

// Frees the buffer of a piece that was much longer than the others, so that memory use stays small.
void Empty(std::string& text) {
  constexpr std::size_t MOST_KEPT = std::size_t{1} << 18U;
  if (text.capacity() > MOST_KEPT) {
    text = std::string();
  } else {
    text.clear();
  }
}

}  // namespace

unsigned Processors() { return std::max(std::thread::hardware_concurrency(), 1U); }

WorkerPool::WorkerPool(std::size_t count, unsigned threads, const std::function<Maker()>& newMaker)
    : count_(count) {
  constexpr std::size_t SLOTS_PER_MAKER = 3;
  makers_.resize(std::max(threads, 1U));
  std::generate(makers_.begin(), makers_.end(), newMaker);
  slots_.resize(makers_.size() * SLOTS_PER_MAKER);
  try {
    for (unsigned i = 0; i < threads; ++i) {
      threads_.emplace_back([this, i] { MakePieces(makers_[i]); });
    }
  } catch (const std::exception&) {
    // The system cannot start another thread. The threads that run already do the work.
  }
}

WorkerPool::~WorkerPool() {
  {
    const std::scoped_lock lock(mutex_);
    ends_ = true;
  }
  taken_.notify_all();
}

std::optional<std::string_view> WorkerPool::Next(std::chrono::milliseconds patience) {
  std::unique_lock lock(mutex_);
  if (handedOver_) {
    SlotOf(nextToTake_++).made = false;
    handedOver_ = false;
    taken_.notify_one();
  }
  Slot& slot = SlotOf(nextToTake_);
  if (threads_.empty()) {
    slot.text.clear();
    makers_.front()(nextToTake_, slot.text);
    slot.made = true;
  }
  made_.wait_for(lock, patience, [this, &slot] { return slot.made || fault_; });
  if (fault_) std::rethrow_exception(fault_);
  if (!slot.made) return std::nullopt;
  handedOver_ = true;
  return slot.text;
}

// Waits for a free slot and returns the next piece to make. Returns nothing when no piece is left.
std::optional<std::size_t> WorkerPool::PieceToMake() {
  std::unique_lock lock(mutex_);
  taken_.wait(lock, [this] {
    return ends_ || nextToMake_ == count_ || nextToMake_ < nextToTake_ + slots_.size();
  });
  if (ends_ || nextToMake_ == count_) return std::nullopt;
  return nextToMake_++;
}

void WorkerPool::MakePieces(const Maker& make) {
  std::exception_ptr fault;
  while (const std::optional<std::size_t> piece = PieceToMake()) {
    Slot& slot = SlotOf(*piece);
    try {
      Empty(slot.text);
      make(*piece, slot.text);
    } catch (...) {
      fault = std::current_exception();
    }
    const std::scoped_lock lock(mutex_);
    slot.made = true;
    if (fault && !fault_) fault_ = fault;
    made_.notify_one();
    if (fault) return;
  }
}

}  // namespace quorvel
