// Chooses the stop-words file for the language of an input.
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

// Loads the stop words of all languages for language recognition. Returns null when a file exists
// but cannot be read.
[[nodiscard]] std::shared_ptr<const LanguagesByWord> ReadLanguages();

// Returns the language of an input, or English without any evidence.
[[nodiscard]] Language RecognizeInputLanguage(const InputBytes& input, Reading reading,
                                              const LanguagesByWord& languages);

// Reads the stop words for the language of a new input, unless these, or those of all languages,
// are in use. If the language is unknown or its file is missing, asks the user whether to use the
// English stop words. Call it whenever the input is set.
void ChooseStopWords(const std::optional<Language>& language, ConcordanceSettings& settings,
                     StopWordList& list, Conversation& ui);

}  // namespace quorvel
