#include "engine/typed_word.h"

#include <algorithm>

#include "lists/wildcard.h"
#include "util/ascii.h"

namespace quorvel {

TypedWord::TypedWord(std::u16string_view typed, const Alphabet& alphabet)
    : alphabet_(alphabet),
      isPattern_(HoldsWildcard(typed)),
      sorted_(alphabet.SortKey(typed)),
      plain_(alphabet.WithoutAccents(typed)) {}

TypedWord::Fit TypedWord::FitOf(std::u16string_view folded, std::u16string_view typed) const {
  if (isPattern_) return MatchesWildcard(folded, typed, alphabet_) ? Fit::whole : Fit::none;
  if (!folded.starts_with(typed)) return Fit::none;
  return folded.size() == typed.size() ? Fit::whole : Fit::begins;
}

TypedWord::Fit TypedWord::FitOf(const WordEntry& entry) const {
  const Fit sorted = FitOf(entry.sortKey, sorted_);
  if (sorted == Fit::whole || IsAscii(std::u16string_view(entry.word))) return sorted;
  return std::max(sorted, FitOf(alphabet_.WithoutAccents(entry.word), plain_));
}

std::vector<EntryIndex> FindTyped(const TypedWord& typed, const WordTable& table,
                                  const std::vector<EntryIndex>& entries) {
  std::vector<EntryIndex> whole;
  std::vector<EntryIndex> begins;
  for (const EntryIndex entry : entries) {
    const TypedWord::Fit fit = typed.FitOf(table.At(entry));
    if (fit == TypedWord::Fit::whole) whole.push_back(entry);
    if (fit == TypedWord::Fit::begins && begins.empty()) begins.push_back(entry);
  }
  return whole.empty() ? begins : whole;
}

}  // namespace quorvel
