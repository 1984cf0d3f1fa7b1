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
  SortedWords words;        // as the file spells them
  SortedWords numberWords;  // the English ones while they are concealed, else none
  bool loaded = false;      // a file has been read whole
};

// Reads the file at `path` into the list. False when that could not be done or was
// stopped (the user has been told) or `path` is empty; the words are then as they
// were, but no longer count as loaded.
[[nodiscard]] bool ReadStopWordsFile(const std::string& path, StopWordList& list,
                                     UserInterface& ui);

// The same, and then tells the user how many words there are and takes the path
// into the settings.
bool AttemptToReadStopWords(const std::string& path, ConcordanceSettings& settings,
                            StopWordList& list, UserInterface& ui);

// What the user is told of a list that was read: "Forty-two stop words loaded from ...".
[[nodiscard]] std::string StopWordsLoadedText(const StopWordList& list, const std::string& path);

// Shows the first words of a list of two or more.
void ListStopWords(const StopWordList& list, UserInterface& ui);

void EraseStopWords(StopWordList& list);

// Conceals the number words like stop words, or no longer.
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
