// Repairs of text that was read byte by byte although it is UTF-8.
//
// A file is read as if each byte were one Windows-1252 character. What was UTF-8
// shows as runs of odd characters, which these functions turn into the letters
// and the plain punctuation that were meant. They work on bytes, with plain text
// replacement: no general UTF-8 decoder, and nothing outside their few ranges is
// touched. Their oddities decide which words a concordance holds and are kept.
#pragma once

#include <cstdint>
#include <string>

namespace quorvel {

// Replaces the two-byte sequences of the letters and signs from U+00A0 to U+00FF
// by their single bytes, removes those of the control characters U+0080 to
// U+009F, and makes a plain "c" of the c with caron.
void RepairUtf8(std::string& text);

// Replaces the three-byte sequences of dashes, quotation marks, bullet, ellipsis
// and angle marks by plain characters. When the first sequence of that block in
// the text is another one (a dagger, say), only that one is removed and the rest
// of the text stays as it is.
void PlainPunctuation(std::string& text);

// Whether these two know the UTF-8 of a character beyond ASCII, so that nothing of it stays.
[[nodiscard]] bool IsRepaired(std::uint32_t codePoint);

}  // namespace quorvel
