// Detects the character set that a web page or an XML text declares, and decodes the text.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "unicode/decoding.h"

namespace quorvel {

// Returns the name of the character set in "<?xml" or in a "<meta" of the head, in lower case.
// Empty when none is declared. Comments are skipped.
[[nodiscard]] std::string DeclaredCharset(std::string_view markup);

// Returns the character set for a name in lower case, or nothing when it is not supported.
// ISO-8859-1 is read as Windows-1252, which contains all its printable characters and is nearly
// always the real encoding. A declaration of UTF-16 means UTF-8, because the name could not be read
// in real UTF-16.
[[nodiscard]] std::optional<Charset> CharsetNamed(std::string_view name);

// The decoded text, or the name of a character set that is not supported.
struct DecodedMarkup {
  Utf8Text decoded;
  std::string unknownCharset;  // empty when the text was decoded
};

// Decodes a page or an XML text: by its byte-order mark, else by its declaration, else as
// TextOfBytes does.
[[nodiscard]] DecodedMarkup DecodeMarkup(std::string_view bytes);

}  // namespace quorvel
