// Decides which entries of a complete word table are listed.
#pragma once

#include "engine/words.h"
#include "lists/keywords.h"
#include "lists/stop_words.h"
#include "settings/settings.h"

namespace quorvel {

// The word lists that decide, together with the settings, whether a word is listed.
struct WordLists {
  StopWordList stopWords;
  SortedWords extraStopWords;  // lower case
  KeywordLists keywords;
};

// Returns a flag for each entry: true when it is listed. Create mode uses the settings and the stop
// words; search mode uses only the keywords. An extra stop word matches in any case, a word of the
// stop-words file only as it is spelled.
[[nodiscard]] IncludeFlags ApplyAdmissionFilters(const WordTable& table,
                                                 const ConcordanceSettings& settings,
                                                 const WordLists& lists, const Alphabet& alphabet);

}  // namespace quorvel
