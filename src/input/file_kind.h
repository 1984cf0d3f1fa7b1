// Detects whether a file is a text that the program can read.
//
// First the encoding is detected from the first bytes and a declared charset, then the kind of the
// file from the encoding and the line ends. Used for documents and for word lists. The messages for
// the user are in run/input_check.h.
#pragma once

#include <cstddef>
#include <string_view>

#include "files/read_file.h"

namespace quorvel {

// The encoding of a file, according to its first bytes or its charset declaration.
enum class TextEncoding {
  noPath,
  empty,
  oneToFourBytes,
  compound,
  rtf,
  utf16LittleEndian,
  utf16BigEndian,
  utf32BigEndian,
  utf8,
  ansi,  // no mark was found
};

enum class FileKind {
  noPath,
  empty,
  oneToFourBytes,
  compound,  // a document of an older word processor, or an encrypted DOCX document
  rtf,
  utf16,
  otherUnicode,
  notText,
  windowsText,  // CR LF, no line end in the examined part, or any UTF-8 file
  unixText,     // LF only
  macText,      // CR only
};

// True when mark-up declares the charset UTF-8, with or without quotation marks, in any case.
[[nodiscard]] bool DeclaresUtf8(std::string_view bytes);

// Detects the encoding of an input. With `checkMarkupCharset`, a text or mark-up file without a
// mark is searched as a whole for a UTF-8 charset declaration and for typographic punctuation in
// UTF-8.
[[nodiscard]] TextEncoding DetectTextEncoding(const InputBytes& input, bool checkMarkupCharset);

struct FileClass {
  FileKind kind = FileKind::noPath;
  bool isUtf8 = false;
};

// Detects the kind of an input. Line ends are searched for in the first `examineLimit` bytes, but
// not in a UTF-8 file.
[[nodiscard]] FileClass ClassifyTextFile(const InputBytes& input, std::size_t examineLimit,
                                         bool checkMarkupCharset);

}  // namespace quorvel
