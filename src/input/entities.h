// Decodes the character entities of web pages: the few that pages in a Latin alphabet need.
//
// All other entities, named or numeric, stay as they are.
#pragma once

#include <string>

namespace quorvel {

// Replaces the known entities in `text` by their Windows-1252 bytes. A candidate is the text
// between an "&" and the next ";", however long it is. A byte that replaces an entity does not
// begin another candidate.
void DecodeEntities(std::string& text);

}  // namespace quorvel
