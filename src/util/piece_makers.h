// Makes a long result in pieces, on all processors, and hands the pieces over in their order.
//
// The thread that wants the result waits for each piece a little at a time, and can let events run
// in between.
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

class PieceMakers {
 public:
  // Appends the piece of that number, from 0 on, to a text that is empty.
  using Maker = std::function<void(std::size_t piece, std::string& to)>;

  // Begins to make `count` pieces on so many threads, a few pieces ahead of those that were taken.
  // Each thread has a maker of its own; `newMaker` is called here. Without a thread, or where the
  // system allows none, the pieces are made as they are asked for.
  PieceMakers(std::size_t count, unsigned threads, const std::function<Maker()>& newMaker);

  // Waits for the pieces that are being made; the others are not made any more.
  ~PieceMakers();

  PieceMakers(const PieceMakers&) = delete;
  PieceMakers& operator=(const PieceMakers&) = delete;

  // The next piece, valid until the next call; nothing when it is not there after `patience`. To
  // be called until all pieces were taken. Throws what a maker threw.
  [[nodiscard]] std::optional<std::string_view> Next(std::chrono::milliseconds patience);

 private:
  struct Slot {
    std::string text;
    bool made = false;
  };

  [[nodiscard]] Slot& SlotOf(std::size_t piece) { return slots_[piece % slots_.size()]; }
  void MakePieces(const Maker& make);
  [[nodiscard]] std::optional<std::size_t> PieceToMake();

  std::mutex mutex_;  // for all that follows but the texts of the slots
  std::condition_variable made_;
  std::condition_variable taken_;
  std::size_t count_;
  std::size_t nextToMake_ = 0;
  std::size_t nextToTake_ = 0;
  bool handedOver_ = false;  // the piece to take next; its slot is free again at the next call
  bool ends_ = false;
  std::exception_ptr fault_;
  std::vector<Slot> slots_;
  std::vector<Maker> makers_;
  std::vector<std::jthread> threads_;
};

}  // namespace quorvel
