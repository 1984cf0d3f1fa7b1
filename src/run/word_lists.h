// Reads the user's word lists from their files, with the messages about them.
#pragma once

#include <string>

#include "lists/keywords.h"
#include "lists/stop_words.h"
#include "run/conversation.h"
#include "settings/settings.h"

namespace quorvel {

// Reads the stop-words file at `path` into `list`. Returns false for an empty path, and when the
// file could not be read or reading was stopped (the user has been told). The words are then
// unchanged but no longer count as loaded.
[[nodiscard]] bool ReadStopWordsFile(const std::string& path, const Alphabet& alphabet,
                                     StopWordList& list, Conversation& ui);

// Like ReadStopWordsFile. On success it also tells the user the number of words and puts the path
// into the settings.
bool AttemptToReadStopWords(const std::string& path, ConcordanceSettings& settings,
                            StopWordList& list, Conversation& ui);

// The message for a loaded list: "Forty-two stop words loaded from ...".
[[nodiscard]] std::string StopWordsLoadedText(const StopWordList& list, const std::string& path);

// Shows the first words of a list, if it has at least two.
void ListStopWords(const StopWordList& list, Conversation& ui);

// True when the settings allow all characters of the extra stop words. Otherwise tells the user the
// first character that is not allowed.
[[nodiscard]] bool CheckAllowedExtraChars(const ConcordanceSettings& settings, Conversation& ui);

// Reads the keywords file at `path` into the file keywords; everything that is not a plain word is
// left out. Returns false for an empty path, and when the file could not be read or reading was
// stopped (the user has been told). The keywords are then unchanged.
[[nodiscard]] bool ReadKeywordsFile(const std::string& path, const Alphabet& alphabet,
                                    KeywordLists& lists, Conversation& ui);

// Like ReadKeywordsFile. On success it also tells the user the number of keywords and offers to
// show them.
bool AttemptToReadSearchWords(const std::string& path, const Alphabet& alphabet,
                              KeywordLists& lists, Conversation& ui);

// The message for a loaded list: "Forty-two keywords loaded from ...".
[[nodiscard]] std::string KeywordsLoadedText(const KeywordLists& lists, const std::string& path);

// Tidies the extra keywords of the settings and puts them into `lists`. If they are invalid, tells
// the user, leaves `lists` unchanged and returns false.
[[nodiscard]] bool GetExtraKeywords(ConcordanceSettings& settings, KeywordLists& lists,
                                    Conversation& ui);

}  // namespace quorvel
