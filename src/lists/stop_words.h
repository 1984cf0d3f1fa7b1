// The words that a concordance leaves out: those of a stop-word list, the number
// words hidden beside them, and the extra stop words that the user types.
#pragma once

#include <string>
#include <string_view>

#include "lists/binary_search.h"
#include "settings/settings.h"
#include "util/user_interface.h"

namespace quorvel {

struct StopWordList {
  SortedWords words;  // the file's words and, while they are concealed, the number words
  bool numberWordsConcealed = false;
};

// Puts the English number words into the list, or takes them out again; does
// nothing when that is how it stands already.
void ConcealNumWords(StopWordList& list, bool conceal);

// The text of the extra stop words as it is kept: lower case, commas taken as
// blanks, sorted, with single blanks between the words. UTF-8 both ways.
[[nodiscard]] std::string TidyExtraStopWords(std::string_view text);

// The words of tidied extra stop words.
[[nodiscard]] SortedWords ExtraStopWordsOf(std::string_view tidied);

// True when every character of the extra stop words may stand in a word under the
// settings; else tells the user of the first that may not.
[[nodiscard]] bool CheckAllowedExtraChars(const ConcordanceSettings& settings, UserInterface& ui);

}  // namespace quorvel
