// Whether a file is a text that the program can read.
//
// Two layers: the encoding by the first bytes and a declared charset, and the kind
// of the file by encoding and line ends. Used for documents and for word lists. What the user is
// told of them stands in run/input_check.h.
#pragma once

#include <cstddef>
#include <string_view>

#include "files/read_file.h"
#include "util/fault.h"

namespace quorvel {

// What the first bytes of a file, or its charset declaration, say of it.
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
  ansi,  // no mark found
};

enum class FileKind {
  noPath,
  missing,
  unreadable,
  empty,
  oneToFourBytes,
  compound,  // of an older word processor, or a DOCX document behind a password
  rtf,
  utf16,
  otherUnicode,
  notText,
  windowsText,  // CR LF, or no line end in the examined part, or any UTF-8 file
  unixText,     // LF only
  macText,      // CR only
};

// Whether mark-up declares the charset UTF-8, with or without quotation marks, in
// any case of its letters.
[[nodiscard]] bool DeclaresUtf8(std::string_view bytes);

// The encoding of an input. With `checkMarkupCharset` a text or mark-up file that
// begins with no mark is searched whole for a UTF-8 charset declaration and for
// the UTF-8 form of typographic punctuation.
[[nodiscard]] TextEncoding DetectTextEncoding(const InputBytes& input, bool checkMarkupCharset);

struct FileClass {
  FileKind kind = FileKind::noPath;
  bool isUtf8 = false;
};

// The kind of an input; the line ends are looked for in its first `examineLimit`
// bytes, and not at all in a UTF-8 file.
[[nodiscard]] FileClass ClassifyTextFile(const InputBytes& input, std::size_t examineLimit,
                                         bool checkMarkupCharset);

// The kind of an input that could not be read.
[[nodiscard]] FileKind KindOfUnread(const Fault& fault);

}  // namespace quorvel
