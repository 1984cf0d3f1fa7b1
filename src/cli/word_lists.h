// The word lists that a command line names, read before the run.
#pragma once

#include <string>

#include "run/session.h"

namespace quorvel {

// Puts the stop-words file of `language` into the settings, unless these name one:
// `language` is a language's code, "all", "auto" for the language of the input, "none"
// or empty. False when the input's language could not be told, and English is taken for it.
[[nodiscard]] bool SettleStopWordsFile(const std::string& language, Session& session);

// Whether that takes a look at the input.
[[nodiscard]] bool RecognizesLanguage(const std::string& language,
                                      const ConcordanceSettings& settings);

// Reads the keywords of a search, or the stop words of a concordance, from the files that
// the settings name. With `tellStopWords` off their number is progress, no message. False
// when a list could not be read (the user has been told) or the user stopped.
[[nodiscard]] bool LoadWordLists(Session& session, bool tellStopWords, Conversation& ui);

}  // namespace quorvel
