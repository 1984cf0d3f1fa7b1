// A worker pool that makes a long text in pieces on several threads and returns the pieces in
// order.
//
// The thread that takes the pieces waits with a timeout, so that it can handle events in between.
#pragma once

#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <exception>
#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

namespace quorvel {

// The number of processors, at least 1.
[[nodiscard]] unsigned Processors();

class WorkerPool {
 public:
  // Appends the piece with the given 0-based number to `to`, which is empty.
  using Maker = std::function<void(std::size_t piece, std::string& to)>;

  // Starts making `count` pieces on `threads` threads, at most a few pieces ahead of the last piece
  // taken. Each thread has its own maker; `newMaker` is called in the constructor. With no threads,
  // or when the system cannot start any, Next() makes the pieces.
  WorkerPool(std::size_t count, unsigned threads, const std::function<Maker()>& newMaker);

  // Waits for the pieces that are in progress. The remaining pieces are not made.
  ~WorkerPool();

  WorkerPool(const WorkerPool&) = delete;
  WorkerPool& operator=(const WorkerPool&) = delete;

  // Returns the next piece, valid until the next call, or nothing when it is not ready after
  // `patience`. Must not be called after the last piece was taken. Rethrows what a maker threw.
  [[nodiscard]] std::optional<std::string_view> Next(std::chrono::milliseconds patience);

 private:
  struct Slot {
    std::string text;
    bool made = false;
  };

  [[nodiscard]] Slot& SlotOf(std::size_t piece) { return slots_[piece % slots_.size()]; }
  void MakePieces(const Maker& make);
  [[nodiscard]] std::optional<std::size_t> PieceToMake();

  std::mutex mutex_;  // protects all members below, except the texts of the slots
  std::condition_variable made_;
  std::condition_variable taken_;
  std::size_t count_;
  std::size_t nextToMake_ = 0;
  std::size_t nextToTake_ = 0;
  bool handedOver_ = false;  // the piece `nextToTake_` was returned; the next call frees its slot
  bool ends_ = false;
  std::exception_ptr fault_;
  std::vector<Slot> slots_;
  std::vector<Maker> makers_;
  std::vector<std::jthread> threads_;
};

}  // namespace quorvel
