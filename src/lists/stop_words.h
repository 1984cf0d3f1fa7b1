// The words that a concordance leaves out: those of a stop-word list, the number
// words hidden beside them, and the extra stop words that the user types.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "lists/binary_search.h"
#include "settings/settings.h"
#include "util/alphabet.h"
#include "util/fault.h"

namespace quorvel {

struct StopWordList {
  SortedWords words;        // as the file spells them
  SortedWords numberWords;  // the English ones while they are concealed, else none
  bool loaded = false;      // a file has been read whole
};

void EraseStopWords(StopWordList& list);

// Conceals the number words like stop words, or no longer.
void ConcealNumWords(StopWordList& list, bool conceal);

// The text of the extra stop words as it is kept: lower case, commas taken as
// blanks, sorted, with single blanks between the words. UTF-8 both ways.
[[nodiscard]] std::string TidyExtraStopWords(std::string_view text, const Alphabet& alphabet);

// The words of tidied extra stop words.
[[nodiscard]] SortedWords ExtraStopWordsOf(std::string_view tidied);

// The first character of the extra stop words that may not stand in a word under the settings, as
// `reason` of a fault: `notAllowedInStopWord`, or `notAllowedForNow` for one that an option allows.
[[nodiscard]] std::optional<Fault> FaultInExtraStopWords(const ConcordanceSettings& settings);

}  // namespace quorvel
