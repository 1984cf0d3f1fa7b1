// Scans a long text in pieces at the same time, each on its own thread.
//
// The result is the same for any number of pieces.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "engine/tokenizer.h"

namespace quorvel {

// The number of pieces for which a text of `length` code units is scanned fastest: one for each
// processor, but no short ones.
[[nodiscard]] std::size_t BestPieceCount(std::size_t length);

// Divides the text into at most `count` pieces of about the same length, between tokens. `count` is
// at least 1. An empty text is one piece.
[[nodiscard]] std::vector<TextSpan> PiecesOfText(std::u16string_view text, const Alphabet& alphabet,
                                                 std::size_t count);

// Returns the sorted words of all pieces, which must be those of the whole text. If `sought` is not
// null, only these words are recorded. The calling thread scans the first piece. After a stop the
// result holds the words found so far.
[[nodiscard]] WordTable ScanPieces(std::u16string_view text, const std::vector<TextSpan>& pieces,
                                   const Alphabet& alphabet, const KeywordLists* sought,
                                   Progress& progress);

}  // namespace quorvel
