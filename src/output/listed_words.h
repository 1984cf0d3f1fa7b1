// The words of a table that are listed, in the order of the listing.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

#include "engine/word_table.h"
#include "settings/settings.h"
#include "util/progress_bar.h"
#include "util/user_interface.h"

namespace quorvel {

struct ListedWord {
  const WordEntry* entry = nullptr;
  // Where the progress bar stands with it, of as many as the table has words.
  std::int32_t step = 0;
};

// The included words in the order asked for.
[[nodiscard]] std::vector<ListedWord> ListedWords(const WordTable& table, WordOrder order);

// Shows how far a listing is.
class ListingProgress {
 public:
  ListingProgress(const WordTable& table, UserInterface& ui);

  // Shows that a word is listed.
  void Show(const ListedWord& word);

  // Lets events run; false when the user wants the listing to end.
  [[nodiscard]] bool MayGoOn();

 private:
  std::int32_t wordCount_;
  UserInterface& ui_;
  std::optional<ProgressBar> bar_;
};

// Hands the included words to `list`, one after the other in the order asked for, until that
// gives false or the user wants it to end, and shows the progress. False only where `list` gave
// false; whether it was stopped the user interface knows.
[[nodiscard]] bool ForEachListedWord(const WordTable& table, WordOrder order, UserInterface& ui,
                                     const std::function<bool(const WordEntry&)>& list);

}  // namespace quorvel
