// Recognizes the language of a text by its stop words.
#pragma once

#include <array>
#include <bitset>
#include <cstddef>
#include <string>
#include <unordered_map>
#include <vector>

#include "lists/languages.h"

namespace quorvel {

// How much of a text is examined, in bytes.
inline constexpr std::size_t RECOGNITION_LENGTH = 65536;

using StopWordsByLanguage = std::array<std::vector<std::u16string>, LANGUAGES.size()>;

// For each word, the languages that have it as a stop word, as a set of indices into LANGUAGES. It
// is built once and used for many texts.
using LanguagesByWord = std::unordered_map<std::u16string, std::bitset<LANGUAGES.size()>>;

// Builds this table from the stop words of each language, in the order of LANGUAGES.
[[nodiscard]] LanguagesByWord LanguagesOf(const StopWordsByLanguage& stopWords);

// Returns the 0-based index in LANGUAGES of the language whose stop words occur most often in
// `bytes`, which is Windows-1252. On a tie the first language wins; without any stop word it is
// English.
[[nodiscard]] std::size_t RecognizeLanguage(std::string bytes, const LanguagesByWord& languages);

}  // namespace quorvel
