// The words that a concordance leaves out: those of a stop-words file, number words, and the extra
// stop words that the user types.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "lists/sorted_words.h"
#include "settings/settings.h"
#include "util/alphabet.h"
#include "util/fault.h"

namespace quorvel {

struct StopWordList {
  SortedWords words;        // as spelled in the file
  SortedWords numberWords;  // English number words while they are concealed, otherwise empty
  bool loaded = false;      // a file was read completely
};

// Removes the words of the file. Concealed number words stay.
void EraseStopWords(StopWordList& list);

// Turns the concealing of number words on or off. Concealed number words count as stop words.
void ConcealNumWords(StopWordList& list, bool conceal);

// Returns extra stop words in their stored form: lower case, sorted, separated by single blanks.
// Commas count as blanks. UTF-8 in and out.
[[nodiscard]] std::string TidyExtraStopWords(std::string_view text, const Alphabet& alphabet);

// Splits tidied extra stop words into words.
[[nodiscard]] SortedWords ExtraStopWordsOf(std::string_view tidied);

// Returns a fault for the first character of the extra stop words that the settings do not allow in
// a word, with the character as its reason: `notAllowedInStopWord`, or `notAllowedForNow` if an
// option would allow it.
[[nodiscard]] std::optional<Fault> FaultInExtraStopWords(const ConcordanceSettings& settings);

}  // namespace quorvel
