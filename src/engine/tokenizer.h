// Cuts a text into words and records each occurrence in the word table.
//
// The tokenizer decides only what can be a word. Which words are listed is decided later, on the
// complete table.
#pragma once

#include <cstddef>
#include <string_view>

#include "engine/word_table.h"
#include "lists/keywords.h"
#include "util/alphabet.h"
#include "util/progress.h"

namespace quorvel {

// The minimum and maximum length of a recorded word, in characters.
inline constexpr std::size_t MIN_WORD_LENGTH = 3;
inline constexpr std::size_t MAX_WORD_LENGTH = 30;

// Cuts the token that begins at `scanPosition`, where there must be a word character. Moves
// `scanPosition` to the character after the token; at the end of the text it becomes the length of
// the text plus 2. Returns the word of the token as a view into the text, or an empty view when the
// token is not a word.
[[nodiscard]] std::u16string_view GetWord(std::u16string_view text, const Alphabet& alphabet,
                                          Position& scanPosition);

// Returns the word of a whole token as a view into it, or an empty view when the token is not a
// word.
[[nodiscard]] std::u16string_view WordOfToken(std::u16string_view token, const Alphabet& alphabet);

// True when a word returned by GetWord is recorded: its length is in range, and it is neither one
// repeated letter nor a Roman numeral.
[[nodiscard]] bool MayEnterTable(std::u16string_view word);

// A range of the text: 0-based, `end` exclusive.
struct TextSpan {
  std::size_t begin;
  std::size_t end;
};

// Returns where the occurrence of `word` recorded at `position` really stands, including a dropped
// plural "s". `text` must be the text that was scanned.
[[nodiscard]] TextSpan SpanOfOccurrence(std::u16string_view text, std::u16string_view word,
                                        Position position);

// Scans a piece of a text, in which double hyphens are already blanked, and adds its words to
// `table`. No token may reach over an end of the piece. If `sought` is not null, only these words
// are recorded, which is much faster. Ends early after a stop request.
void GetWords(std::u16string_view text, TextSpan piece, const Alphabet& alphabet, WordTable& table,
              Progress& progress, const KeywordLists* sought = nullptr);

}  // namespace quorvel
