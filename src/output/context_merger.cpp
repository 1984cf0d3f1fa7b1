#include "output/context_merger.h"

#include <bit>

#include "util/text_hash.h"

// The base text of a stored context, by which a new one is compared, ends before
// its last " (x". So a text that itself ends in such a marker ("foo (x2)") stands
// for "foo" until it is marked; from then on its last " (x" is the marker's own
// and it stands for all of its text. Two stored texts may have the same base, and
// a new context then counts for both. Known and kept: only the listing's own
// markers are meant, but they cannot be told from the text's.
//
// The repeat count was meant to stop at 999, yet the limit is looked up at the
// place of the current occurrence, where no context is stored so far: it never
// takes effect, and lists in use show higher counts.

namespace quorvel {

// One slot for each occurrence at most, and where base texts can change one more for
// each that is marked; half of the slots stay free.
void ContextMerger::Start(std::int32_t occurrences) {
  contexts_.clear();
  const std::size_t used = static_cast<std::size_t>(occurrences) * (markersInText_ ? 2 : 1);
  slots_.assign(std::bit_ceil(2 * used), {});
}

void ContextMerger::Add(std::string_view context) {
  const std::uint32_t hash = HashOf(context);
  const std::size_t mask = slots_.size() - 1;
  bool found = false;
  for (std::size_t i = hash & mask; slots_[i].context != FREE; i = (i + 1) & mask) {
    const Slot slot = slots_[i];
    if (slot.hash != hash) continue;
    if (BaseText(contexts_[static_cast<std::size_t>(slot.context)]) != context) continue;
    found = true;
    if (countRepeats_) CountRepeat(slot.context);
  }
  if (found) return;
  const auto place = static_cast<std::int32_t>(contexts_.size());
  const MergedContext& added = contexts_.emplace_back(MergedContext{context, 0});
  const std::string_view base = BaseText(added);
  Insert(base.size() == context.size() ? hash : HashOf(base), place);
}

std::string_view ContextMerger::BaseText(const MergedContext& context) const {
  if (!markersInText_ || context.repeats > 0) return context.text;
  return context.text.substr(0, context.text.rfind(REPEAT_MARKER_START));
}

void ContextMerger::Insert(std::uint32_t hash, std::int32_t context) {
  const std::size_t mask = slots_.size() - 1;
  std::size_t i = hash & mask;
  while (slots_[i].context != FREE) i = (i + 1) & mask;
  slots_[i] = {hash, context};
}

void ContextMerger::CountRepeat(std::int32_t context) {
  MergedContext& merged = contexts_[static_cast<std::size_t>(context)];
  const std::size_t oldBase = BaseText(merged).size();
  ++merged.repeats;
  if (oldBase != merged.text.size()) Insert(HashOf(merged.text), context);
}

std::string TextWithMarker(const MergedContext& context) {
  std::string text(context.text);
  if (context.repeats > 0) {
    text.append(REPEAT_MARKER_START).append(std::to_string(context.repeats + 1)).append(")");
  }
  return text;
}

}  // namespace quorvel
