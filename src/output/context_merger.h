// Gathers the distinct contexts of one word and counts how often each occurs.
//
// A context that recurs is not stored again: the stored one gets a repeat marker,
// " (x2)" and so on. Which context equals which is looked up by hashing; the
// outcome is that of comparing with every stored context in turn, in a fraction of the time
// whatever the text holds.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "lines/quotation.h"
#include "util/hash_seed.h"

namespace quorvel {

inline constexpr std::u16string_view REPEAT_MARKER_START = u" (x";

template <typename Char>
struct MergedContext {
  std::basic_string_view<Char> text;  // without the marker that stands for `repeats`
  std::int32_t repeats = 0;           // 0 for a context that occurred once
};

template <typename Char>
class ContextMerger {
 public:
  using View = std::basic_string_view<Char>;

  // With `countRepeats` off a recurring context is dropped without a marker.
  // `markersInText` says whether the document itself may hold REPEAT_MARKER_START;
  // where it does not, no context can be mistaken for a marked one.
  ContextMerger(bool countRepeats, bool markersInText, const HashSeed& seed)
      : countRepeats_(countRepeats), markersInText_(markersInText), seed_(seed) {}

  // Forgets all contexts, to take up to `occurrences` new ones.
  void Start(std::int32_t occurrences);

  // Adds the context of one occurrence; the characters must outlive the result.
  void Add(View context);

  // The distinct contexts in the order of their first occurrence.
  [[nodiscard]] const std::vector<MergedContext<Char>>& Contexts();

 private:
  static constexpr std::int32_t NONE = -1;

  // A context, or where base texts can change a name, by the hash of its text.
  struct Slot {
    std::uint32_t hash = 0;
    std::int32_t place = NONE;
  };

  // A text that stored contexts can be known by.
  struct Name {
    View text;
    std::int32_t whole = NONE;  // the first context that is this text
    std::int32_t cut = NONE;    // the last one of which this is the base text, but not all
  };

  // A context that is stored again, because its base text is not all of it.
  struct Copy {
    std::int32_t place;
    std::int32_t original;
  };

  template <typename Texts>
  std::int32_t& PlaceOf(View text, const Texts& texts);
  void AddPlain(View context);
  void AddByNames(View context);
  [[nodiscard]] bool CountByName(std::size_t name);
  std::size_t NameOf(View text);
  void Store(View context, std::size_t name);

  bool countRepeats_;
  bool markersInText_;
  std::basic_string<Char> markerStart_ = MarkInText<Char>(REPEAT_MARKER_START);
  HashSeed seed_;
  std::vector<MergedContext<Char>> contexts_;
  std::vector<Slot> slots_;  // a power of two of them
  std::vector<Name> names_;
  std::vector<std::int32_t> cutBefore_;  // for each context the one before it in a name's `cut`
  std::vector<Copy> copies_;
};

// The text of a context with its marker, if it has one: "… (x3)".
template <typename Char>
[[nodiscard]] std::basic_string<Char> TextWithMarker(const MergedContext<Char>& context);

extern template class ContextMerger<char>;
extern template class ContextMerger<char16_t>;
extern template std::string TextWithMarker(const MergedContext<char>& context);
extern template std::u16string TextWithMarker(const MergedContext<char16_t>& context);

}  // namespace quorvel
