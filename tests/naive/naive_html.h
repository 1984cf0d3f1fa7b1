// The slow, obvious form of the removal of markup: character by character, with 1-based positions,
// copied strings and one flag for each state. It shares no code with the core.
#pragma once

#include <string>

namespace quorvel::naive {

// Entities, each preceded by a blank and followed by its character.
extern const std::string ENTITY_TABLE;

[[nodiscard]] std::string StripTags(const std::string& text);
[[nodiscard]] std::string StripTagsAndLists(const std::string& text, bool markLists);
[[nodiscard]] std::string DecodeEntities(std::string text);

}  // namespace quorvel::naive
