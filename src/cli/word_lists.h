// Reads the word lists of a command line before the run.
#pragma once

#include <string>

#include "run/session.h"

namespace quorvel {

// Puts the stop-words file of `language` into the settings, unless they already name a file.
// `language` is the code of a language, "all", "auto" for the language of the input, "none", or
// empty. Returns false when the input's language could not be recognized and English is used.
[[nodiscard]] bool SettleStopWordsFile(const std::string& language, Session& session);

// True when SettleStopWordsFile will examine the input.
[[nodiscard]] bool RecognizesLanguage(const std::string& language,
                                      const ConcordanceSettings& settings);

// Reads the keywords of a search, or the stop words of a concordance, from the files in the
// settings. Without `tellStopWords` the number of stop words is shown only as progress. Returns
// false when a list could not be read (the user has been told) or the user stopped.
[[nodiscard]] bool LoadWordLists(Session& session, bool tellStopWords, Conversation& ui);

}  // namespace quorvel
