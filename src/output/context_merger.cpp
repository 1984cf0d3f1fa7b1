#include "output/context_merger.h"

#include <bit>
#include <utility>

#include "util/text_hash.h"

// New contexts are compared to the base text of each stored context, which ends before the last
// " (x" of the stored text. So a text that itself ends in such a marker ("foo (x2)") stands for
// "foo" until it is marked. From then on its last " (x" is the marker's own, and it stands for its
// whole text. Two stored texts may have the same base text, and then a new context counts for both.
// Compatibility: users' listings depend on this. Markers in the document's text cannot be
// distinguished from those of the listing.
//
// Compatibility: the repeat count has no limit, because users' listings show counts above 999.

// While the base text of a context is shorter than the context, the context is stored again each
// time it occurs. All copies are marked by the same contexts, so only the first copy is counted,
// and the others take over its count at the end. Once a text is marked, no further copy is made.

namespace quorvel {

// At most one slot for each occurrence, and if base texts can change, one more for each base text.
// Half of the slots stay free.
template <typename Char>
void ContextMerger<Char>::Start(std::int32_t occurrences) {
  contexts_.clear();
  names_.clear();
  cutBefore_.clear();
  copies_.clear();
  const std::size_t used = static_cast<std::size_t>(occurrences) * (markersInText_ ? 2 : 1);
  slots_.assign(std::bit_ceil(2 * used), {});
}

template <typename Char>
void ContextMerger<Char>::Add(View context) {
  if (markersInText_) {
    AddByNames(context);
  } else {
    AddPlain(context);
  }
}

template <typename Char>
auto ContextMerger<Char>::Contexts() -> const std::vector<MergedContext<Char>>& {
  for (const Copy& copy : copies_) {
    contexts_[static_cast<std::size_t>(copy.place)].repeats =
        contexts_[static_cast<std::size_t>(copy.original)].repeats;
  }
  return contexts_;
}

// Returns the index of `text` in `texts`. If it is missing, returns a reference to NONE, which the
// caller must set.
template <typename Char>
template <typename Texts>
std::int32_t& ContextMerger<Char>::PlaceOf(View text, const Texts& texts) {
  const std::uint32_t hash = HashOf(text, seed_);
  const std::size_t mask = slots_.size() - 1;
  std::size_t i = hash & mask;
  for (; slots_[i].place != NONE; i = (i + 1) & mask) {
    const Slot& slot = slots_[i];
    if (slot.hash == hash && texts[static_cast<std::size_t>(slot.place)].text == text) break;
  }
  slots_[i].hash = hash;
  return slots_[i].place;
}

template <typename Char>
void ContextMerger<Char>::AddPlain(View context) {
  std::int32_t& place = PlaceOf(context, contexts_);
  if (place == NONE) {
    place = static_cast<std::int32_t>(contexts_.size());
    contexts_.push_back({context, 0});
  } else if (countRepeats_) {
    ++contexts_[static_cast<std::size_t>(place)].repeats;
  }
}

template <typename Char>
void ContextMerger<Char>::AddByNames(View context) {
  const std::size_t name = NameOf(context);
  if (!CountByName(name)) Store(context, name);
}

// Counts one more occurrence for all contexts with this base text. Returns false when there are
// none.
template <typename Char>
bool ContextMerger<Char>::CountByName(std::size_t name) {
  Name& named = names_[name];
  bool found = named.cut != NONE;
  if (named.whole != NONE) {
    MergedContext<Char>& whole = contexts_[static_cast<std::size_t>(named.whole)];
    if (whole.repeats > 0 || whole.text.rfind(markerStart_) == View::npos) {
      found = true;
      if (countRepeats_) ++whole.repeats;
    }
  }
  if (!countRepeats_) return found;
  // From now on these contexts stand for their whole text.
  for (std::int32_t cut = std::exchange(named.cut, NONE); cut != NONE;
       cut = cutBefore_[static_cast<std::size_t>(cut)]) {
    contexts_[static_cast<std::size_t>(cut)].repeats = 1;
  }
  return found;
}

template <typename Char>
std::size_t ContextMerger<Char>::NameOf(View text) {
  std::int32_t& place = PlaceOf(text, names_);
  if (place == NONE) {
    place = static_cast<std::int32_t>(names_.size());
    names_.push_back({text});
  }
  return static_cast<std::size_t>(place);
}

template <typename Char>
void ContextMerger<Char>::Store(View context, std::size_t name) {
  const auto place = static_cast<std::int32_t>(contexts_.size());
  contexts_.push_back({context, 0});
  cutBefore_.push_back(NONE);
  if (names_[name].whole != NONE) {
    copies_.push_back({place, names_[name].whole});
    return;
  }
  names_[name].whole = place;
  const std::size_t marker = context.rfind(markerStart_);
  if (marker == View::npos) return;
  Name& base = names_[NameOf(context.substr(0, marker))];
  cutBefore_.back() = std::exchange(base.cut, place);
}

template <typename Char>
std::basic_string<Char> TextWithMarker(const MergedContext<Char>& context) {
  std::basic_string<Char> text(context.text);
  if (context.repeats > 0) {
    const std::string number = std::to_string(context.repeats + 1) + ")";
    text.append(MarkInText<Char>(REPEAT_MARKER_START)).append(number.begin(), number.end());
  }
  return text;
}

template class ContextMerger<char>;
template class ContextMerger<char16_t>;
template std::string TextWithMarker(const MergedContext<char>& context);
template std::u16string TextWithMarker(const MergedContext<char16_t>& context);

}  // namespace quorvel
