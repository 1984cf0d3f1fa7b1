// Extracts the text of a book chapter: a page that needs neither a document type nor a head.
#pragma once

#include <string>
#include <string_view>

namespace quorvel {

// Returns the text of a chapter, whose lines must already be joined by blanks. Blanks are
// compacted, and entities stay. Scripts, style sheets and, with `ignoreLists`, lists are left out
// as for web pages. Each tag becomes a blank, except tags that occur inside words, such as "<b>".
[[nodiscard]] std::string ChapterText(std::string_view markup, bool ignoreLists);

}  // namespace quorvel
