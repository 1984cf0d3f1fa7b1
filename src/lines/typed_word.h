// Words that a user looks for by typing them: from their beginning, or by a pattern.
//
// Case and accents do not matter: "uber" and "ueber" both find "über".
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

  // Whether it is a pattern (lists/wildcard.h), which fits whole words.
  [[nodiscard]] bool IsPattern() const { return isPattern_; }

  // How an entry fits: as it is sorted, or with its accents dropped.
  [[nodiscard]] Fit FitOf(const WordEntry& entry) const;

 private:
  [[nodiscard]] Fit FitOf(std::u16string_view folded, std::u16string_view typed) const;

  const Alphabet& alphabet_;
  bool isPattern_;
  std::u16string sorted_;
  std::u16string plain_;
};

// Of `entries`, 0-based numbers in the table, those that are the typed word in whatever spelling
// or, if none is, the first one that begins so.
[[nodiscard]] std::vector<std::int32_t> FindTyped(const TypedWord& typed, const WordTable& table,
                                                  const std::vector<std::int32_t>& entries);

}  // namespace quorvel
