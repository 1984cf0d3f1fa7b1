// Finds words of the table that a user types: by their beginning, or by a pattern.
//
// Case and accents are ignored: "uber" and "ueber" both find "über".
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "engine/word_table.h"
#include "util/alphabet.h"

namespace quorvel {

class TypedWord {
 public:
  enum class Fit { none, begins, whole };

  TypedWord(std::u16string_view typed, const Alphabet& alphabet);

  // How an entry matches, in its form for sorting or in its form without accents.
  [[nodiscard]] Fit FitOf(const WordEntry& entry) const;

 private:
  [[nodiscard]] Fit FitOf(std::u16string_view folded, std::u16string_view typed) const;

  const Alphabet& alphabet_;
  bool isPattern_;  // lists/wildcard.h; a pattern matches whole words
  std::u16string sorted_;
  std::u16string plain_;
};

// Of `entries`, those whose word equals the typed word in any spelling. If there are none, the
// first entry that begins with it.
[[nodiscard]] std::vector<EntryIndex> FindTyped(const TypedWord& typed, const WordTable& table,
                                                const std::vector<EntryIndex>& entries);

}  // namespace quorvel
