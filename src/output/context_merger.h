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

#include "util/hash_seed.h"

namespace quorvel {

inline constexpr std::string_view REPEAT_MARKER_START = " (x";

struct MergedContext {
  std::string_view text;     // without the marker that stands for `repeats`
  std::int32_t repeats = 0;  // 0 for a context that occurred once
};

class ContextMerger {
 public:
  // With `countRepeats` off a recurring context is dropped without a marker.
  // `markersInText` says whether the document itself may hold REPEAT_MARKER_START;
  // where it does not, no context can be mistaken for a marked one.
  ContextMerger(bool countRepeats, bool markersInText, const HashSeed& seed)
      : countRepeats_(countRepeats), markersInText_(markersInText), seed_(seed) {}

  // Forgets all contexts, to take up to `occurrences` new ones.
  void Start(std::int32_t occurrences);

  // Adds the context of one occurrence; the characters must outlive the result.
  void Add(std::string_view context);

  // The distinct contexts in the order of their first occurrence.
  [[nodiscard]] const std::vector<MergedContext>& Contexts();

 private:
  static constexpr std::int32_t NONE = -1;

  // A context, or where base texts can change a name, by the hash of its text.
  struct Slot {
    std::uint32_t hash = 0;
    std::int32_t place = NONE;
  };

  // A text that stored contexts can be known by.
  struct Name {
    std::string_view text;
    std::int32_t whole = NONE;  // the first context that is this text
    std::int32_t cut = NONE;    // the last one of which this is the base text, but not all
  };

  // A context that is stored again, because its base text is not all of it.
  struct Copy {
    std::int32_t place;
    std::int32_t original;
  };

  template <typename Texts>
  std::int32_t& PlaceOf(std::string_view text, const Texts& texts);
  void AddPlain(std::string_view context);
  void AddByNames(std::string_view context);
  [[nodiscard]] bool CountByName(std::size_t name);
  std::size_t NameOf(std::string_view text);
  void Store(std::string_view context, std::size_t name);

  bool countRepeats_;
  bool markersInText_;
  HashSeed seed_;
  std::vector<MergedContext> contexts_;
  std::vector<Slot> slots_;  // a power of two of them
  std::vector<Name> names_;
  std::vector<std::int32_t> cutBefore_;  // for each context the one before it in a name's `cut`
  std::vector<Copy> copies_;
};

// The text of a context with its marker, if it has one: "… (x3)".
[[nodiscard]] std::string TextWithMarker(const MergedContext& context);

}  // namespace quorvel
