// Text made safe to display. A control character in a file name could control a terminal, and a
// line end in it could look like the start of another message.
//
// Everything that is not printable UTF-8 is shown as an escape sequence of C: "\n", "\r", "\t", or
// each byte in hexadecimal as "\x1b". All other text stays unchanged, including backslashes.
#pragma once

#include <string>
#include <string_view>

namespace quorvel {

// Escapes the name of a file, or another text from outside, for use in a message.
[[nodiscard]] std::string VisibleName(std::string_view name);

// Escapes a whole message. The CR LF line ends between its lines stay.
[[nodiscard]] std::string VisibleLines(std::string_view text);

}  // namespace quorvel
