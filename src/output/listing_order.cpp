#include "output/listing_order.h"

namespace quorvel {
namespace {

constexpr std::int32_t FEWEST_WORDS_FOR_BAR = 100;

}  // namespace

std::vector<ListedWord> WordsInOrder(const ListedWords& words, WordOrder order) {
  const WordTable& table = *words.words.table;
  std::vector<ListedWord> listed;
  listed.reserve(words.frequencyChain.size());
  if (order == WordOrder::alphabetical) {
    for (std::size_t i = 0; i < table.entries.size(); ++i) {
      if (words.include[i]) listed.push_back({&table.entries[i], static_cast<std::int32_t>(i) + 1});
    }
  } else {
    for (const EntryIndex entry : words.frequencyChain) {
      listed.push_back({&table.At(entry), static_cast<std::int32_t>(listed.size()) + 1});
    }
  }
  return listed;
}

ListingProgress::ListingProgress(const ListedWords& words, Progress& progress)
    : wordCount_(words.words.table->WordCount()), progress_(progress) {
  if (wordCount_ > FEWEST_WORDS_FOR_BAR) bar_.emplace(progress);
}

void ListingProgress::Show(const ListedWord& word) {
  if (bar_) bar_->Update(word.step, wordCount_, 0);
}

bool ListingProgress::MayGoOn() {
  progress_.YieldNow();
  return !progress_.StopRequested();
}

}  // namespace quorvel
