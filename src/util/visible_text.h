// Texts made safe to show: a control character in the name of a file would act on a terminal, and a
// line end in it would look like the beginning of another message.
//
// What is no printable UTF-8 is shown by what C would write for it: "\n", "\r", "\t", else each of
// its bytes in hexadecimal, "\x1b". All else stays, backslashes too.
#pragma once

#include <string>
#include <string_view>

namespace quorvel {

// The name of a file, or another text that somebody else has written, for a message.
[[nodiscard]] std::string VisibleName(std::string_view name);

// The same for a whole message: the CR LF between its lines stay.
[[nodiscard]] std::string VisibleLines(std::string_view text);

}  // namespace quorvel
