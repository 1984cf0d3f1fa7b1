// The interface between long work and whoever waits for it: report progress, let events run, and
// check for a stop.
//
// Readers, the scan and the composer see nothing else of their caller. They cannot ask questions or
// show messages: an error is returned as a Fault, and the caller decides what to show.
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

  // Announces the next phase by name: "Sorting".
  virtual void BeginPhase(std::string_view name) = 0;

  // Shows the text progress bar with this caption. An empty caption removes the bar.
  virtual void ShowBar(std::string_view caption) = 0;

  // Stores the number of different words found so far, for display.
  void NoteWordsFound(std::int32_t count) { wordsFound_ = count; }
  [[nodiscard]] std::int32_t WordsFound() const { return wordsFound_; }

  // Lets pending events run. Call it once in each coarse step.
  virtual void YieldNow() = 0;

  // Like YieldNow, without a limit on how often events run. Call it before a step that cannot
  // yield.
  virtual void YieldAtOnce() { YieldNow(); }

  // Like YieldNow, for inner loops: only one call in a few thousand does any work.
  void Yield() {
    if (--callsUntilYield_ == 0) {
      callsUntilYield_ = CALLS_BETWEEN_YIELDS;
      YieldNow();
    }
  }

  // True when the user has requested a stop and confirmed it.
  [[nodiscard]] bool StopRequested() const { return stopRequested_; }
  void RequestStop() { stopRequested_ = true; }
  void ClearStop() { stopRequested_ = false; }

 private:
  static constexpr int CALLS_BETWEEN_YIELDS = 4096;
  int callsUntilYield_ = CALLS_BETWEEN_YIELDS;
  std::int32_t wordsFound_ = 0;
  bool stopRequested_ = false;
};

// Progress for work that nobody waits for.
class SilentProgress : public Progress {
 public:
  void BeginPhase(std::string_view /*name*/) override {}
  void ShowBar(std::string_view /*caption*/) override {}
  void YieldNow() override {}
};

}  // namespace quorvel
