// Gathers the distinct contexts of one word and counts how often each occurs.
//
// A context that recurs is not stored again: the stored one gets a repeat marker,
// " (x2)" and so on. Which context equals which is looked up by hashing; the
// outcome is that of comparing with every stored context in turn.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

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
  ContextMerger(bool countRepeats, bool markersInText)
      : countRepeats_(countRepeats), markersInText_(markersInText) {}

  // Forgets all contexts, to take up to `occurrences` new ones.
  void Start(std::int32_t occurrences);

  // Adds the context of one occurrence; the characters must outlive the result.
  void Add(std::string_view context);

  // The distinct contexts in the order of their first occurrence.
  [[nodiscard]] const std::vector<MergedContext>& Contexts() const { return contexts_; }

 private:
  static constexpr std::int32_t FREE = -1;

  // A context by the hash of its base text. A stale one no longer has that base.
  struct Slot {
    std::uint32_t hash = 0;
    std::int32_t context = FREE;
  };

  [[nodiscard]] std::string_view BaseText(const MergedContext& context) const;
  void Insert(std::uint32_t hash, std::int32_t context);
  void CountRepeat(std::int32_t context);

  bool countRepeats_;
  bool markersInText_;
  std::vector<MergedContext> contexts_;
  std::vector<Slot> slots_;  // a power of two of them
};

// The text of a context with its marker, if it has one: "… (x3)".
[[nodiscard]] std::string TextWithMarker(const MergedContext& context);

}  // namespace quorvel
