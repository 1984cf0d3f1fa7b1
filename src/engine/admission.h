// Decides which entries of a finished word table are listed.
#pragma once

#include "engine/words.h"
#include "lists/keywords.h"
#include "lists/stop_words.h"
#include "settings/settings.h"

namespace quorvel {

// What the admission of a word is judged by, besides the settings.
struct WordLists {
  StopWordList stopWords;
  SortedWords extraStopWords;  // lower case
  KeywordLists keywords;
};

// Whether `word` is a stop word. An extra stop word is meant in any case of its
// letters, a word of the list exactly as it is spelled. Without a stop-words file
// and without extra stop words there are none, whatever the list still holds.
[[nodiscard]] bool IsStopWord(std::u16string_view word, const ConcordanceSettings& settings,
                              const WordLists& lists, const Alphabet& alphabet);

// Which entries are listed: in create mode by the settings and the stop words, in search mode by
// the keywords alone.
[[nodiscard]] IncludeFlags ApplyAdmissionFilters(const WordTable& table,
                                                 const ConcordanceSettings& settings,
                                                 const WordLists& lists, const Alphabet& alphabet);

}  // namespace quorvel
