// Runs without a file: the state as a run leaves it before the listing.
#pragma once

#include <cstddef>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "engine/run_state.h"
#include "engine/tokenizer.h"
#include "util/user_interface.h"

namespace quorvel {

// Scans `text` and admits, sorts and links its words; `settings` holds tidied extra stop words.
inline RunState ScanText(std::u16string text, const ConcordanceSettings& settings,
                         UserInterface& ui) {
  RunState state;
  state.settings = settings;
  state.documentText = std::move(text);
  state.table.positionWidth = PositionWidth(state.documentText.size());
  BlankDoubleHyphens(state.documentText);
  GetWords(state.documentText, state.table, ui);
  SortWordTable(state.table);
  state.lists.extraStopWords = ExtraStopWordsOf(settings.extraStopWords);
  ApplyAdmissionFilters(state.table, settings, state.lists);
  CountIncludedWords(state.table);
  BuildFrequencyChain(state.table);
  return state;
}

// A text of up to `mostParts` of the given parts in random order, now and then with a stretch of
// it said again, so that whole contexts recur.
inline std::u16string RandomText(const std::vector<std::u16string>& parts, std::size_t mostParts,
                                 std::mt19937& random) {
  std::u16string text;
  for (std::size_t left = random() % (mostParts + 1); left > 0; --left) {
    text += parts[random() % parts.size()];
    if (random() % 16 == 0) text += text.substr(random() % (text.size() + 1), random() % 64);
  }
  return text;
}

}  // namespace quorvel
