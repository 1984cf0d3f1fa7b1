// The word lists of the user: reading their files, and what is said about them.
#pragma once

#include <string>

#include "lists/keywords.h"
#include "lists/stop_words.h"
#include "run/conversation.h"
#include "settings/settings.h"

namespace quorvel {

// Reads the stop-words file at `path` into the list. False when that could not be done or was
// stopped (the user has been told) or `path` is empty; the words are then as they
// were, but no longer count as loaded.
[[nodiscard]] bool ReadStopWordsFile(const std::string& path, const Alphabet& alphabet,
                                     StopWordList& list, Conversation& ui);

// The same, and then tells the user how many words there are and takes the path
// into the settings.
bool AttemptToReadStopWords(const std::string& path, ConcordanceSettings& settings,
                            StopWordList& list, Conversation& ui);

// What the user is told of a list that was read: "Forty-two stop words loaded from ...".
[[nodiscard]] std::string StopWordsLoadedText(const StopWordList& list, const std::string& path);

// Shows the first words of a list of two or more.
void ListStopWords(const StopWordList& list, Conversation& ui);

// True when every character of the extra stop words may stand in a word under the
// settings; else tells the user of the first that may not.
[[nodiscard]] bool CheckAllowedExtraChars(const ConcordanceSettings& settings, Conversation& ui);

// Reads the keywords file at `path` into the list of file keywords; what is no plain word is
// left out. False when that could not be done or was stopped (the user has been told) or
// `path` is empty; the keywords are then as they were.
[[nodiscard]] bool ReadKeywordsFile(const std::string& path, const Alphabet& alphabet,
                                    KeywordLists& lists, Conversation& ui);

// The same, and then tells the user how many keywords there are and offers to show them.
bool AttemptToReadSearchWords(const std::string& path, const Alphabet& alphabet,
                              KeywordLists& lists, Conversation& ui);

// What the user is told of a list that was read: "Forty-two keywords loaded from ...".
[[nodiscard]] std::string KeywordsLoadedText(const KeywordLists& lists, const std::string& path);

// Takes the extra keywords of the settings, which it tidies, into the list. False,
// with the list as it was, where they hold what no keyword may; the user has been told.
[[nodiscard]] bool GetExtraKeywords(ConcordanceSettings& settings, KeywordLists& lists,
                                    Conversation& ui);

}  // namespace quorvel
