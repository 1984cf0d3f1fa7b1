// Extracts the text of a web page.
//
// It works on one string of bytes, the lines of the page joined by blanks, and does not parse the
// structure of the page. It finds the end of the head, and drops tags, scripts, style sheets and,
// if requested, lists. Any input, however broken, gives a result.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "util/progress.h"

namespace quorvel {

enum class HtmlOutcome {
  notAPage,  // no document-type line; the text is unchanged
  prepared,  // the text is plain now, with compacted blanks
  noHead,    // the page cannot be used
};

// Converts a page to plain text: removes its head, its tags and, with `ignoreLists`, its lists,
// compacts blanks and decodes entities. `isUtf8` says that the text was already repaired as UTF-8
// when it was read. Otherwise a page that declares UTF-8 is repaired here.
[[nodiscard]] HtmlOutcome PrepareHtmlText(std::string& text, bool isUtf8, bool ignoreLists,
                                          Progress& progress);

// Like PrepareHtmlText, but without decoding entities.
[[nodiscard]] HtmlOutcome StripPage(std::string& text, bool isUtf8, bool ignoreLists,
                                    Progress& progress);

// Returns the 0-based index after the first "</head>", in any case, or nothing. Sets `isUtf8` when
// the page declares the charset UTF-8 anywhere.
[[nodiscard]] std::optional<std::size_t> FindHtmlBody(std::string_view page, bool& isUtf8);

// Replaces every tag by one blank, and removes scripts, style sheets and everything before the
// first ">". An unclosed "<" removes the rest of the text.
void StripTags(std::string& text);

// Like StripTags, and also removes bulleted and numbered lists. With `markLists`, " // " stands for
// each of them.
void StripTagsAndLists(std::string& text, bool markLists);

}  // namespace quorvel
