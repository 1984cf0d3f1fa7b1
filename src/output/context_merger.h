// Collects the distinct contexts of one word and counts how often each occurs.
//
// A context that recurs is not stored again: the stored one gets a repeat marker, such as " (x2)".
// Equal contexts are found by hashing. The result is that of comparing each context with all stored
// ones, in a fraction of the time for any text.
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
  std::basic_string_view<Char> text;  // without its repeat marker
  std::int32_t repeats = 0;           // number of further occurrences
};

template <typename Char>
class ContextMerger {
 public:
  using View = std::basic_string_view<Char>;

  // Without `countRepeats`, a recurring context is dropped and gets no marker. `markersInText` must
  // be true if the document may contain REPEAT_MARKER_START. Otherwise no context can look like a
  // marked one, and a simpler algorithm is used.
  ContextMerger(bool countRepeats, bool markersInText, const HashSeed& seed)
      : countRepeats_(countRepeats), markersInText_(markersInText), seed_(seed) {}

  // Removes all contexts and prepares for up to `occurrences` new ones.
  void Start(std::int32_t occurrences);

  // Adds the context of one occurrence. Its characters must outlive the result.
  void Add(View context);

  // Returns the distinct contexts in the order of their first occurrence.
  [[nodiscard]] const std::vector<MergedContext<Char>>& Contexts();

 private:
  static constexpr std::int32_t NONE = -1;

  // A hash table slot: the index of a context, or of a name if base texts can change.
  struct Slot {
    std::uint32_t hash = 0;
    std::int32_t place = NONE;
  };

  // A text that stored contexts are compared by.
  struct Name {
    View text;
    std::int32_t whole = NONE;  // the first context with exactly this text
    std::int32_t cut = NONE;    // the last context with this base text and more text
  };

  // A context that is stored again because its base text is shorter than the context.
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
  std::vector<Slot> slots_;  // the number of slots is a power of two
  std::vector<Name> names_;
  std::vector<std::int32_t> cutBefore_;  // for each context the previous one in `cut`
  std::vector<Copy> copies_;
};

// The text of a context with its repeat marker, if any: "… (x3)".
template <typename Char>
[[nodiscard]] std::basic_string<Char> TextWithMarker(const MergedContext<Char>& context);

extern template class ContextMerger<char>;
extern template class ContextMerger<char16_t>;
extern template std::string TextWithMarker(const MergedContext<char>& context);
extern template std::u16string TextWithMarker(const MergedContext<char16_t>& context);

}  // namespace quorvel
