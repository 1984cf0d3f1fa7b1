// The listed words in the order of the listing, and the progress while they are listed.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "engine/words.h"
#include "settings/settings.h"
#include "util/progress.h"
#include "util/progress_bar.h"

namespace quorvel {

struct ListedWord {
  const WordEntry* entry = nullptr;
  // The progress bar's position for this word; the maximum is the number of words in the table.
  std::int32_t step = 0;
};

// Returns the included words in the given order, as pointers into `words`.
[[nodiscard]] std::vector<ListedWord> WordsInOrder(const ListedWords& words, WordOrder order);

// Shows the progress of a listing.
class ListingProgress {
 public:
  ListingProgress(const ListedWords& words, Progress& progress);

  // Shows that `word` has been listed.
  void Show(const ListedWord& word);

  // Lets events run. Returns false when the user has stopped the listing.
  [[nodiscard]] bool MayGoOn();

 private:
  std::int32_t wordCount_;
  Progress& progress_;
  std::optional<ProgressBar> bar_;
};

}  // namespace quorvel
