// Character entities of web pages: the few that a page in a Latin alphabet needs.
//
// Not a full table: every other entity, named or numeric, stays as it is written.
#pragma once

#include <string>

namespace quorvel {

// Replaces the known entities in `text` by the Windows-1252 bytes that they stand
// for. What stands between an "&" and the next ";" is the candidate, however far
// apart they are; a byte put in place of one begins no further candidate.
void DecodeEntities(std::string& text);

}  // namespace quorvel
