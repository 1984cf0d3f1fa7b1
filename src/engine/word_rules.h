// The rules that keep tokens out of the word table during the scan.
#pragma once

#include <string_view>

namespace quorvel {

// True for "aaa" and the like. Case counts: "Aaa" is not a repeated character.
[[nodiscard]] bool IsOneRepeatedChar(std::u16string_view word);

// True when all letters are I, V, X, L, C, D or M, in any case, and the word is not one of the nine
// exceptions ("dim", "civil" ...). The order of the letters is not checked. Compatibility: "did",
// "mill" and "mix" count as numerals, because users' listings and index files depend on it.
[[nodiscard]] bool IsRomanNumeral(std::u16string_view word);

// True when `word`, in any case, is the part of a contraction before its apostrophe ("couldn",
// "isn"). Compatibility: an end of such a part counts too ("ren", "ouldn"), because users' listings
// and index files depend on it.
[[nodiscard]] bool IsContractionStem(std::u16string_view word);

}  // namespace quorvel
