// The tests that keep a word out of the table while the text is scanned.
#pragma once

#include <string_view>

namespace quorvel {

// True for "aaa" and the like. Case counts: "Aaa" is none.
[[nodiscard]] bool IsOneRepeatedChar(std::u16string_view word);

// True when every letter is one of I, V, X, L, C, D and M, in any case, and the
// word is none of the nine exceptions ("dim", "civil" ...). No grammar of numerals
// is asked for: "did", "mill" and "mix" count, on purpose.
[[nodiscard]] bool IsRomanNumeral(std::u16string_view word);

// True when `word`, in lower case, is one of the stems that a cut contraction
// leaves ("couldn", "isn") or, on purpose, the tail of one ("ren", "ouldn").
[[nodiscard]] bool IsContractionStem(std::u16string_view word);

}  // namespace quorvel
