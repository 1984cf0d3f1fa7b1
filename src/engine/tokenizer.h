// Cuts a text into words and records each occurrence in the word table.
//
// Only what may become a word at all is decided here; which words are listed is
// decided later, over the finished table.
#pragma once

#include <cstdint>
#include <string_view>

#include "engine/word_table.h"
#include "lists/keywords.h"
#include "util/alphabet.h"
#include "util/progress.h"

namespace quorvel {

// A shorter word is never recorded. In characters.
inline constexpr std::size_t MIN_WORD_LENGTH = 3;

// Cuts the token that begins at `scanPosition`, a 1-based position that holds a
// word character, and moves that behind it (two behind the end of the text for a
// token that ends there). Gives the word that the token stands for, a view into
// the text, or an empty view for a token that is none.
[[nodiscard]] std::u16string_view GetWord(std::u16string_view text, const Alphabet& alphabet,
                                          std::size_t& scanPosition);

// The word that a whole token stands for, a view into it; empty when it stands for none.
[[nodiscard]] std::u16string_view WordOfToken(std::u16string_view token, const Alphabet& alphabet);

// Whether a word that GetWord gave is recorded at all: by its length, and because it is
// neither one repeated letter nor a Roman numeral.
[[nodiscard]] bool MayEnterTable(std::u16string_view word);

// A stretch of the text: from place `begin` up to, not including, place `end`, 0-based.
struct TextSpan {
  std::size_t begin;
  std::size_t end;
};

// Where the occurrence of `word` that the scan has recorded at `position` really stands, a
// plural "s" that was dropped included. The text must be the one that was scanned.
[[nodiscard]] TextSpan SpanOfOccurrence(std::u16string_view text, std::u16string_view word,
                                        std::int32_t position);

// Scans a text whose double hyphens are blanked and adds its words to the table; of these
// only the `sought` ones, where such are given, which is much faster. Ends early when a stop is
// requested, after the word at hand.
void GetWords(std::u16string_view text, const Alphabet& alphabet, WordTable& table,
              Progress& progress, const KeywordLists* sought = nullptr);

}  // namespace quorvel
