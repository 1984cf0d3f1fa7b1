// What work says while it goes on, and what it hears: how far it is, a chance for events to run,
// and whether it is to stop.
//
// All that readers, the scan and the composer see of whoever waits for them. Nothing can be asked
// or told here: what went wrong comes back as a Fault, and whoever called decides what is said.
#pragma once

#include <cstdint>
#include <string_view>

namespace quorvel {

class Progress {
 public:
  Progress() = default;
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;
  virtual ~Progress() = default;

  // Says what is done from here on: "Sorting".
  virtual void BeginPhase(std::string_view name) = 0;

  // Shows the text progress bar with this caption; an empty one removes it.
  virtual void ShowBar(std::string_view caption) = 0;

  // Notes how many different words have been found so far. Whoever wants to shows them.
  void NoteWordsFound(std::int32_t count) { wordsFound_ = count; }
  [[nodiscard]] std::int32_t WordsFound() const { return wordsFound_; }

  // Lets pending events run; to be called once a coarse step.
  virtual void YieldNow() = 0;

  // The same however short a time ago it did: before a step that nothing can run in.
  virtual void YieldAtOnce() { YieldNow(); }

  // The same for the innermost loops: only one call in a few thousand does work.
  void Yield() {
    if (--callsUntilYield_ == 0) {
      callsUntilYield_ = CALLS_BETWEEN_YIELDS;
      YieldNow();
    }
  }

  // Whether the user has asked, and confirmed, that the work should end.
  [[nodiscard]] bool StopRequested() const { return stopRequested_; }
  void RequestStop() { stopRequested_ = true; }
  void ClearStop() { stopRequested_ = false; }

 private:
  static constexpr int CALLS_BETWEEN_YIELDS = 4096;
  int callsUntilYield_ = CALLS_BETWEEN_YIELDS;
  std::int32_t wordsFound_ = 0;
  bool stopRequested_ = false;
};

// For work that nobody waits for.
class SilentProgress : public Progress {
 public:
  void BeginPhase(std::string_view /*name*/) override {}
  void ShowBar(std::string_view /*caption*/) override {}
  void YieldNow() override {}
};

}  // namespace quorvel
