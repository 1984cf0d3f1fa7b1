// Runs without a file: the state as a run leaves it before the listing.
#pragma once

#include <string_view>

#include "engine/run_state.h"
#include "engine/tokenizer.h"
#include "util/ansi.h"
#include "util/user_interface.h"

namespace quorvel {

// Scans `text` and admits, sorts and links its words; `settings` holds tidied extra stop words.
inline RunState ScanText(std::u16string_view text, const ConcordanceSettings& settings,
                         UserInterface& ui) {
  RunState state;
  state.settings = settings;
  state.ansiText = EncodeAnsi(text);
  BlankDoubleHyphens(state.ansiText);
  state.documentText = DecodeAnsi(state.ansiText);
  state.table.positionWidth = PositionWidth(state.documentText.size());
  GetWords(state.documentText, state.table, ui);
  SortWordTable(state.table);
  state.lists.extraStopWords = ExtraStopWordsOf(settings.extraStopWords);
  ApplyAdmissionFilters(state.table, settings, state.lists);
  CountIncludedWords(state.table);
  BuildFrequencyChain(state.table);
  return state;
}

}  // namespace quorvel
