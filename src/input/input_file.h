// Whether a file is a text that the program can read, and what the user is told
// when it is not.
//
// Three layers: the encoding by the first bytes and a declared charset, the kind
// of the file by encoding and line ends, and the check that reports to the user.
// Used for documents and for word lists. Nothing of the file is kept here.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "util/user_interface.h"

namespace quorvel {

// What the first bytes of a file, or its charset declaration, say of it.
enum class TextEncoding {
  noPath = -5,
  oneToFourBytes = -4,
  unreadable = -3,
  empty = -2,
  missing = -1,
  ansi = 0,  // no mark found
  utf16LittleEndian = 1,
  utf16BigEndian = 2,
  utf8 = 3,
  utf32BigEndian = 5,
  rtf = 6,
};

// The negative numbers and 6 mean what they mean in TextEncoding.
enum class FileKind {
  noPath = -5,
  oneToFourBytes = -4,
  unreadable = -3,
  empty = -2,
  missing = -1,
  notText = 0,
  windowsText = 1,  // CR LF, or no line end in the examined part, or any UTF-8 file
  unixText = 2,     // LF only
  macText = 3,      // CR only
  rtf = 6,
  otherUnicode = 7,
};

// Whether mark-up declares the charset UTF-8, with or without quotation marks, in
// any case of its letters.
[[nodiscard]] bool DeclaresUtf8(std::string_view bytes);

// The encoding of a file. With `checkMarkupCharset` a text or mark-up file that
// begins with no mark is searched whole for a UTF-8 charset declaration and for
// the UTF-8 form of typographic punctuation.
[[nodiscard]] TextEncoding DetectTextEncoding(const std::string& path, bool checkMarkupCharset);

struct FileClass {
  FileKind kind = FileKind::noPath;
  bool isUtf8 = false;
};

// The kind of a file; the line ends are looked for in its first `examineLimit`
// bytes, and not at all in a UTF-8 file.
[[nodiscard]] FileClass ClassifyTextFile(const std::string& path, std::uint64_t examineLimit,
                                         bool checkMarkupCharset);

struct CheckOptions {
  bool quiet = false;          // only the fatal messages may appear
  bool askToContinue = false;  // ask, not only warn, about a large file with Unix line ends
};

struct InputCheck {
  bool accepted = false;
  FileKind kind = FileKind::noPath;
  bool isUtf8 = false;
};

// Classifies a file and tells the user whatever stands in the way. The notice on
// Macintosh line ends is given once in the life of `macNoticeShown`.
[[nodiscard]] InputCheck CheckInputFile(const std::string& path, const CheckOptions& options,
                                        bool& macNoticeShown, UserInterface& ui);

// The gate at the start of a run: only text files, DOCX files and web pages pass,
// told by name alone. `title` is that of the message for all others.
[[nodiscard]] bool PassesExtensionGate(const std::string& path, const std::string& title,
                                       UserInterface& ui);

// Whether the input exists, can be opened, and is an ordinary file whose every
// character has a place that a 32-bit number can hold. Tells the user if not.
[[nodiscard]] bool CheckInputReadable(const std::string& path, UserInterface& ui);

}  // namespace quorvel
