// Runs without a file: the state as a run leaves it before the listing.
#pragma once

#include <string>
#include <utility>

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

}  // namespace quorvel
