// The slow, obvious form of what the core does fast. Tests compare the two over generated texts.
//
// It is written step by step, with 1-based positions, copied strings, linear searches and its own
// tables of letters. It shares records with the core but no code, so that a fault in one of them is
// noticed. Only for characters of Windows-1252, and only for listing all words.
#pragma once

#include <string>
#include <vector>

#include "engine/words.h"
#include "settings/settings.h"

namespace quorvel::naive {

// Replaces double hyphens by blanks.
[[nodiscard]] std::u16string BlankDoubleHyphens(std::u16string text);

// The words of such a text: sorted, admitted, linked by frequency and counted.
[[nodiscard]] ListedWords MakeWordTable(const std::u16string& text,
                                        const ConcordanceSettings& settings);

// The entry of a word in a listing, from the contexts of its occurrences in the order of the text.
[[nodiscard]] std::u16string ComposeEntry(const std::u16string& word,
                                          const std::vector<std::u16string>& contexts,
                                          const ConcordanceSettings& settings);

// The listing of a text that still has its double hyphens, without leading line ends.
[[nodiscard]] std::u16string ListWords(const std::u16string& documentText,
                                       const ConcordanceSettings& settings);

[[nodiscard]] std::string RepairUtf8(std::string text);
[[nodiscard]] std::string PlainPunctuation(std::string text);

}  // namespace quorvel::naive
