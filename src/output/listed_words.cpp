#include "output/listed_words.h"

#include <optional>

#include "util/progress_bar.h"

namespace quorvel {
namespace {

constexpr std::int32_t FEWEST_WORDS_FOR_BAR = 100;

using ListWord = std::function<bool(const WordEntry&)>;

// What stands around the listing of each word.
class Walk {
 public:
  Walk(const WordTable& table, UserInterface& ui, const ListWord& list)
      : table_(table), ui_(ui), list_(list) {
    if (table.WordCount() > FEWEST_WORDS_FOR_BAR) bar_.emplace(ui);
  }

  // Entry `i`, 1-based.
  [[nodiscard]] const WordEntry& Entry(std::int32_t i) const {
    return table_.entries[static_cast<std::size_t>(i) - 1];
  }

  // Lists entry `i`, the `step`-th one looked at.
  bool List(std::int32_t i, std::int32_t step) {
    if (bar_) bar_->Update(step, table_.WordCount(), 0);
    return list_(Entry(i));
  }

  // Lets events run; false when the user wants the listing to end.
  bool MayGoOn() {
    ui_.YieldNow();
    return !ui_.StopRequested();
  }

 private:
  const WordTable& table_;
  UserInterface& ui_;
  const ListWord& list_;
  std::optional<ProgressBar> bar_;
};

bool WalkAlphabetically(const WordTable& table, Walk& walk) {
  for (std::int32_t i = 1; i <= table.WordCount(); ++i) {
    if (walk.Entry(i).include && !walk.List(i, i)) return false;
    if (!walk.MayGoOn()) break;
  }
  return true;
}

bool WalkByFrequency(const WordTable& table, Walk& walk) {
  std::int32_t i = table.frequencyHead;
  for (std::int32_t step = 1; step <= table.includedCount; ++step) {
    if (!walk.List(i, step)) return false;
    if (!walk.MayGoOn()) break;
    i = walk.Entry(i).frequencyNext;
  }
  return true;
}

}  // namespace

bool ForEachListedWord(const WordTable& table, WordOrder order, UserInterface& ui,
                       const ListWord& list) {
  Walk walk(table, ui, list);
  return order == WordOrder::alphabetical ? WalkAlphabetically(table, walk)
                                          : WalkByFrequency(table, walk);
}

}  // namespace quorvel
