// The character set that a web page or an XML text declares, and its text read by that.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "unicode/decoding.h"

namespace quorvel {

// The name of the character set as it stands in the "<?xml" or in a "<meta" of the head, in lower
// case; empty where none is declared. What stands in comments does not count.
[[nodiscard]] std::string DeclaredCharset(std::string_view markup);

// The character set of a name, which is in lower case; nothing where it cannot be read. A text in
// ISO-8859-1 is read as Windows-1252, which has all its characters and is what is nearly always
// meant. UTF-16 by name is UTF-8: with other bytes nobody could have read the name.
[[nodiscard]] std::optional<Charset> CharsetNamed(std::string_view name);

// A text, or the name of the character set that it cannot be read in.
struct DecodedMarkup {
  Utf8Text decoded;
  std::string unknownCharset;  // empty where it was read
};

// The text of a page or an XML text: by its mark, else by what it declares, else by its bytes.
[[nodiscard]] DecodedMarkup DecodeMarkup(std::string_view bytes);

}  // namespace quorvel
