// The slow, obvious form of what the core does fast: the yardstick of the tests that compare the
// two over generated texts.
//
// Written step by step with 1-based positions, copied strings and linear searches, and with letter
// tables of its own: it shares records with the core but no code, so that a fault has to be made
// twice to go unseen. Only for characters of Windows-1252, and only for listing all words.
#pragma once

#include <string>
#include <vector>

#include "engine/words.h"
#include "settings/settings.h"

namespace quorvel::naive {

// The text with its double hyphens blanked.
[[nodiscard]] std::u16string BlankDoubleHyphens(std::u16string text);

// The words of a blanked text: sorted, admitted, linked by frequency and counted.
[[nodiscard]] ListedWords MakeWordTable(const std::u16string& text,
                                        const ConcordanceSettings& settings);

// The entry of a word in a listing, made of the contexts of its occurrences in text order.
[[nodiscard]] std::u16string ComposeEntry(const std::u16string& word,
                                          const std::vector<std::u16string>& contexts,
                                          const ConcordanceSettings& settings);

// The listing of a text whose double hyphens are not blanked yet, without leading line ends.
[[nodiscard]] std::u16string ListWords(const std::u16string& documentText,
                                       const ConcordanceSettings& settings);

[[nodiscard]] std::string RepairUtf8(std::string text);
[[nodiscard]] std::string PlainPunctuation(std::string text);

}  // namespace quorvel::naive
