// A sorted list of words, and look-up in it.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

namespace quorvel {

// Words sorted by code unit.
using SortedWords = std::vector<std::u16string>;

// True when `words` contains `key` with exactly this spelling.
[[nodiscard]] inline bool BinarySearch(const SortedWords& words, std::u16string_view key) {
  return std::binary_search(words.begin(), words.end(), key);
}

}  // namespace quorvel
