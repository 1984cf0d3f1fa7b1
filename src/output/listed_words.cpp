#include "output/listed_words.h"

namespace quorvel {
namespace {

constexpr std::int32_t FEWEST_WORDS_FOR_BAR = 100;

// Entry `i`, 1-based.
const WordEntry& Entry(const WordTable& table, std::int32_t i) {
  return table.entries[static_cast<std::size_t>(i) - 1];
}

}  // namespace

std::vector<ListedWord> ListedWords(const WordTable& table, WordOrder order) {
  std::vector<ListedWord> words;
  words.reserve(static_cast<std::size_t>(table.includedCount));
  if (order == WordOrder::alphabetical) {
    for (std::int32_t i = 1; i <= table.WordCount(); ++i) {
      if (Entry(table, i).include) words.push_back({&Entry(table, i), i});
    }
  } else {
    std::int32_t i = table.frequencyHead;
    for (std::int32_t step = 1; step <= table.includedCount; ++step) {
      words.push_back({&Entry(table, i), step});
      i = Entry(table, i).frequencyNext;
    }
  }
  return words;
}

ListingProgress::ListingProgress(const WordTable& table, UserInterface& ui)
    : wordCount_(table.WordCount()), ui_(ui) {
  if (wordCount_ > FEWEST_WORDS_FOR_BAR) bar_.emplace(ui);
}

void ListingProgress::Show(const ListedWord& word) {
  if (bar_) bar_->Update(word.step, wordCount_, 0);
}

bool ListingProgress::MayGoOn() {
  ui_.YieldNow();
  return !ui_.StopRequested();
}

bool ForEachListedWord(const WordTable& table, WordOrder order, UserInterface& ui,
                       const std::function<bool(const WordEntry&)>& list) {
  ListingProgress progress(table, ui);
  for (const ListedWord& word : ListedWords(table, order)) {
    progress.Show(word);
    if (!list(*word.entry)) return false;
    if (!progress.MayGoOn()) break;
  }
  return true;
}

}  // namespace quorvel
