// The words that are listed, in the order of the listing.
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
  // Where the progress bar stands with it, of as many as the table has words.
  std::int32_t step = 0;
};

// The included words in the order asked for: views into the words.
[[nodiscard]] std::vector<ListedWord> WordsInOrder(const ListedWords& words, WordOrder order);

// Shows how far a listing is.
class ListingProgress {
 public:
  ListingProgress(const ListedWords& words, Progress& progress);

  // Shows that a word is listed.
  void Show(const ListedWord& word);

  // Lets events run; false when the user wants the listing to end.
  [[nodiscard]] bool MayGoOn();

 private:
  std::int32_t wordCount_;
  Progress& progress_;
  std::optional<ProgressBar> bar_;
};

}  // namespace quorvel
