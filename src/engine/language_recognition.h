// Tells the language of a text by the stop words that it holds.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "lists/languages.h"

namespace quorvel {

// How much of a text is looked at, in bytes.
inline constexpr std::size_t RECOGNITION_LENGTH = 65536;

using StopWordsByLanguage = std::array<std::vector<std::u16string>, LANGUAGES.size()>;

// The 0-based place in LANGUAGES of the language that has most of the words of
// `bytes`, in Windows-1252, among its stop words; of several the first, and English when there is
// none.
[[nodiscard]] std::size_t RecognizeLanguage(std::string bytes,
                                            const StopWordsByLanguage& stopWords);

}  // namespace quorvel
