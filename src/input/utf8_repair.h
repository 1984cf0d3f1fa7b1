// Repairs text that is UTF-8 but was read byte by byte.
//
// A file is read as if each byte were one Windows-1252 character. UTF-8 then appears as sequences
// of wrong characters. These functions replace the sequences by the intended letters and by plain
// punctuation. They use plain text replacement on bytes, not a general decoder, and change nothing
// outside their ranges. Compatibility: their oddities decide which words users' listings and index
// files have, so they must stay.
#pragma once

#include <cstdint>
#include <string>

namespace quorvel {

// Replaces the two-byte sequences of U+00A0 to U+00FF by single bytes, removes those of the control
// characters U+0080 to U+009F, and replaces the c with caron by a plain "c".
void RepairUtf8(std::string& text);

// Replaces the three-byte sequences of dashes, quotation marks, bullet, ellipsis and angle marks by
// plain characters. If the first sequence of that block in the text is any other character, such as
// a dagger, only this sequence is removed and the rest of the text is unchanged.
void PlainPunctuation(std::string& text);

// True when the two repairs replace or remove all bytes of this character beyond ASCII.
[[nodiscard]] bool IsRepaired(std::uint32_t codePoint);

}  // namespace quorvel
