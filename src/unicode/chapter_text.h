// The text of a chapter of a book: a page of which neither document type nor head is demanded.
#pragma once

#include <string>
#include <string_view>

namespace quorvel {

// The text of a chapter's lines, which are joined by blanks, with blanks compacted; its entities
// stay. Scripts, style sheets and, with `ignoreLists`, lists are left out as those of web pages
// are. A tag leaves a blank, but for those that stand inside words, like "<b>".
[[nodiscard]] std::string ChapterText(std::string_view markup, bool ignoreLists);

}  // namespace quorvel
