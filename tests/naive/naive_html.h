// The slow, obvious form of the removal of mark-up: character by character with 1-based
// positions, copied strings and one flag for each thing to remember. It shares nothing with the
// core.
#pragma once

#include <string>

namespace quorvel::naive {

// Each entity is followed by its character; a blank stands before each.
extern const std::string ENTITY_TABLE;

[[nodiscard]] std::string StripTags(const std::string& text);
[[nodiscard]] std::string StripTagsAndLists(const std::string& text, bool markLists);
[[nodiscard]] std::string DecodeEntities(std::string text);

}  // namespace quorvel::naive
