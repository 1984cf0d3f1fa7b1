// Decodes the character references of web pages: all names of HTML, and numbers.
#pragma once

#include <string>
#include <string_view>

namespace quorvel {

// Replaces references by the UTF-8 of their characters. A reference is "&", a name or a number, and
// ";". Unknown names stay as they are. Control characters and the no-break space become a plain
// blank, so that they separate words. Numbers that are no character become U+FFFD. Numbers from 80
// to 9F hex are bytes of Windows-1252.
[[nodiscard]] std::string DecodeReferences(std::string_view text);

}  // namespace quorvel
