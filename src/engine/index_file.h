// The form of the index file: the scanned words of an input, so that a later run on the same,
// unchanged input need not scan it again.
//
// Lines with CR LF, in Windows-1252 or UTF-8 as the document was read; see docs/index-file.md. It
// is trusted only as long as the input has the digest that stands in it, and its words the places
// that they have in the text: whoever lists from it checks that with TableFitsText.
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

// The bytes of the index of finished words, made at `time` from an input with `digest`.
[[nodiscard]] std::string IndexFileBytes(const ListedWords& listed, std::string_view digest,
                                         std::time_t time);

// No index of a text of so many characters is longer, in bytes.
[[nodiscard]] std::uint64_t LongestIndexFile(std::uint64_t textLength);

// What an index file says of itself in its first two lines; views into its bytes.
struct IndexHead {
  std::string_view digest;  // of the input that it was made from
  std::string_view date;
};

// The head needs no more than these first bytes of a file.
inline constexpr std::size_t INDEX_HEAD_LENGTH = 4096;

[[nodiscard]] IndexHead HeadOfIndexFile(std::string_view bytes);

// The table in the bytes of an index file of a document with this alphabet, alphabetical: as many
// entries as it announces. Its frequency links are checked and not kept. Nothing when the file is
// cut, a number is none or out of its range, a word is longer than any or out of order, or its
// places do not ascend; nor when `goesOn`, which is asked now and then, says no.
[[nodiscard]] std::optional<WordTable> TableOfIndexFile(
    std::string_view bytes, const Alphabet& alphabet,
    const std::function<bool()>& goesOn = [] { return true; });

}  // namespace quorvel
