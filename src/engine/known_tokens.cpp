#include "engine/known_tokens.h"

#include <algorithm>
#include <cstring>

#include "engine/tokenizer.h"
#include "util/text_hash.h"

namespace quorvel {
namespace {

// Longer tokens are rare, and hardly ever come up again.
constexpr std::size_t LONGEST_KEPT = 64;

}  // namespace

TokenMeaning KnownTokens::MeaningOf(std::size_t begin, std::size_t length) {
  const std::u16string_view token(text_.data() + begin, length);
  if (length > LONGEST_KEPT) return LookInto(token);
  if (2 * (used_ + 1) > slots_.size()) Grow();
  const std::uint32_t hash = HashOf(token);
  const std::size_t mask = slots_.size() - 1;
  std::size_t place = hash & mask;
  for (; slots_[place].length != 0; place = (place + 1) & mask) {
    const Slot& slot = slots_[place];
    if (slot.hash == hash && slot.length == length &&
        std::memcmp(text_.data() + slot.begin, token.data(), length * sizeof(char16_t)) == 0) {
      return slot.meaning;
    }
  }
  slots_[place] = {hash, static_cast<std::uint32_t>(length), begin, LookInto(token)};
  ++used_;
  return slots_[place].meaning;
}

TokenMeaning KnownTokens::LookInto(std::u16string_view token) {
  const std::u16string_view word = WordOfToken(token);
  if (!MayEnterTable(word)) return {};
  return {EntryOf(table_, word), static_cast<std::uint32_t>(word.size())};
}

void KnownTokens::Grow() {
  constexpr std::size_t FIRST_SIZE = 4096;
  std::vector<Slot> old(std::max(FIRST_SIZE, 2 * slots_.size()));
  old.swap(slots_);
  const std::size_t mask = slots_.size() - 1;
  for (const Slot& slot : old) {
    if (slot.length == 0) continue;
    std::size_t place = slot.hash & mask;
    while (slots_[place].length != 0) place = (place + 1) & mask;
    slots_[place] = slot;
  }
}

}  // namespace quorvel
