// From a web page to its text.
//
// Works on the page as it was read: one string of bytes, its lines joined by
// blanks. It knows no document structure: it finds the end of the head, drops what
// stands between "<" and ">" and whatever scripts, style sheets and, if so wished,
// lists hold. Every text, however broken, gives some result.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "util/progress.h"

namespace quorvel {

enum class HtmlOutcome {
  notAPage,  // it has no document-type line; the text is as it was and nothing was said
  prepared,  // it is plain text now, its blanks compacted
  noHead,    // it cannot be used
};

// Makes plain text of a page: without its head, tags and, with `ignoreLists`, its
// lists, with blanks compacted and entities decoded. `isUtf8` says whether the text
// was repaired as UTF-8 when it was read; a page that declares itself UTF-8 and was
// not is repaired here.
[[nodiscard]] HtmlOutcome PrepareHtmlText(std::string& text, bool isUtf8, bool ignoreLists,
                                          Progress& progress);

// The same but for the entities, which stay.
[[nodiscard]] HtmlOutcome StripPage(std::string& text, bool isUtf8, bool ignoreLists,
                                    Progress& progress);

// The 0-based index behind the first "</head>", in any case; nothing when there is
// none. Sets `isUtf8` where the page, anywhere in it, declares the charset UTF-8.
[[nodiscard]] std::optional<std::size_t> FindHtmlBody(std::string_view page, bool& isUtf8);

// Puts one blank in place of every tag and drops scripts, style sheets and what
// stands before the first ">". An unclosed "<" drops the rest of the text.
void StripTags(std::string& text);

// The same, and drops bulleted and numbered lists with all that they hold; with
// `markLists` each leaves " // ".
void StripTagsAndLists(std::string& text, bool markLists);

}  // namespace quorvel
