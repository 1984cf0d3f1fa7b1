// The index file: the scanned words of an input, so that a later run on the same,
// unchanged input need not scan it again.
//
// Windows-1252 lines with CR LF; see docs/index-file.md. It is trusted only as long as
// the input has the digest that stands in it, and its words the places that they have
// in the text: whoever lists from it checks that with TableFitsText.
#pragma once

#include <ctime>
#include <optional>
#include <string>
#include <string_view>

#include "engine/run_state.h"
#include "engine/word_table.h"
#include "util/user_interface.h"

namespace quorvel {

// The bytes of the index of a finished table, made at `time` from an input with `digest`.
[[nodiscard]] std::string IndexFileBytes(const WordTable& table, std::string_view digest,
                                         std::time_t time);

// The table in the bytes of an index file, alphabetical, its frequency links as they
// stand. Nothing when the file is cut, a number is none or out of its range, a word is
// longer than any or out of order, its places do not ascend, or more entries follow than
// are announced.
[[nodiscard]] std::optional<WordTable> TableOfIndexFile(std::string_view bytes);

// Writes the index of the state's table, which has been scanned from its input, beside
// that input and notes in the state that the words are at hand. `digest` is that of the
// input before it was read. Lets events run meanwhile. False, with an older file as it was, when
// the input has changed since or writing failed; nobody is told, but the state holds the reason.
bool CreateIndexFile(RunState& state, const std::string& digest, UserInterface& ui);

// Loads the table from the index file beside the state's input and notes that the words
// are at hand. False when there is no index, it was made from other bytes (the user is
// told), cannot be used, or the user declines; with `ask` off the user is not asked.
bool ReadIndexFile(RunState& state, bool ask, UserInterface& ui);

// The message about an index that was not made from the input as it is.
void ShowBadIndexFile(UserInterface& ui);

}  // namespace quorvel
