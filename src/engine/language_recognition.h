// Tells the language of a text by the stop words that it holds.
#pragma once

#include <array>
#include <bitset>
#include <cstddef>
#include <string>
#include <unordered_map>
#include <vector>

#include "lists/languages.h"

namespace quorvel {

// How much of a text is looked at, in bytes.
inline constexpr std::size_t RECOGNITION_LENGTH = 65536;

using StopWordsByLanguage = std::array<std::vector<std::u16string>, LANGUAGES.size()>;

// Which languages have a word among their stop words, each by its place in LANGUAGES. Made once, it
// serves for many texts.
using LanguagesByWord = std::unordered_map<std::u16string, std::bitset<LANGUAGES.size()>>;

[[nodiscard]] LanguagesByWord LanguagesOf(const StopWordsByLanguage& stopWords);

// The 0-based place in LANGUAGES of the language that has most of the words of `bytes`, in
// Windows-1252, among its stop words; of several the first, and English when there is none.
[[nodiscard]] std::size_t RecognizeLanguage(std::string bytes, const LanguagesByWord& languages);

}  // namespace quorvel
