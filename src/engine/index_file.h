// The format of the index file: the words of an input, so that a later run on the same, unchanged
// input need not scan it again.
//
// The lines end in CR LF, in Windows-1252 or UTF-8 like the document; see docs/index-file.md. An
// index may be used only if its digest is that of the input and its words are at their positions in
// the text. The caller checks the positions with TableFitsText.
#pragma once

#include <cstddef>
#include <cstdint>
#include <ctime>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "engine/words.h"

namespace quorvel {

// Returns the index file of `listed`, made at `time` from an input with `digest`.
[[nodiscard]] std::string IndexFileBytes(const ListedWords& listed, std::string_view digest,
                                         std::time_t time);

// The maximum length in bytes of an index for a text of `textLength` characters.
[[nodiscard]] std::uint64_t LongestIndexFile(std::uint64_t textLength);

// The first two lines of an index file, as views into its bytes.
struct IndexHead {
  std::string_view digest;  // of the input that the index was made from
  std::string_view date;
};

// The number of bytes of a file that always contain the head.
inline constexpr std::size_t INDEX_HEAD_LENGTH = 4096;

// Returns the head of an index file. A line that is missing is empty.
[[nodiscard]] IndexHead HeadOfIndexFile(std::string_view bytes);

// Parses an index file of a document with this alphabet. Returns its words in alphabetical order,
// as many as the file announces. The frequency links are checked and then dropped. Returns nothing
// when the file is truncated, a number is invalid or out of range, a word is too long or out of
// order, or positions do not ascend. Also returns nothing when `goesOn`, which is called from time
// to time, returns false.
[[nodiscard]] std::optional<WordTable> TableOfIndexFile(
    std::string_view bytes, const Alphabet& alphabet,
    const std::function<bool()>& goesOn = [] { return true; });

}  // namespace quorvel
