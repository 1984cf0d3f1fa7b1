// Which stop-words file goes with an input: that of its language.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "engine/language_recognition.h"
#include "files/read_file.h"
#include "lists/languages.h"
#include "lists/stop_words.h"
#include "run/conversation.h"
#include "settings/settings.h"

namespace quorvel {

// The path of the stop words of a language.
[[nodiscard]] std::string StopWordsPath(const Language& language);

// What tells the languages of inputs, by all supplied lists of stop words. Null when one is there
// but cannot be read.
[[nodiscard]] std::shared_ptr<const LanguagesByWord> ReadLanguages();

// The language of an input, English for want of any sign.
[[nodiscard]] Language RecognizeInputLanguage(const InputBytes& input, Reading reading,
                                              const LanguagesByWord& languages);

// To be called whenever the input is set: reads the stop words of its language,
// unless they, or those of all languages, are in use already. Where the language is not known, or
// its file is missing, the user is asked whether to take the English one.
void ChooseStopWords(const std::optional<Language>& language, ConcordanceSettings& settings,
                     StopWordList& list, Conversation& ui);

}  // namespace quorvel
