// Which stop-words file goes with an input: that of its language.
#pragma once

#include <optional>
#include <string>

#include "engine/run_state.h"
#include "lists/languages.h"
#include "util/user_interface.h"

namespace quorvel {

// The path of the stop words of a language.
[[nodiscard]] std::string StopWordsPath(const Language& language);

// The language of the document at `inputFile`, English for want of any sign. Nothing when
// that, or a list of stop words, is there but cannot be read.
[[nodiscard]] std::optional<Language> RecognizeInputLanguage(const std::string& inputFile,
                                                             UserInterface& ui);

// To be called whenever the input is set: reads the stop words of its language,
// unless they, or those of all languages, are in use already. Where the language's
// file is missing the user is asked whether to take the English one.
void ChooseStopWords(RunState& state, UserInterface& ui);

}  // namespace quorvel
