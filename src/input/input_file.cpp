#include "input/input_file.h"

#include <algorithm>
#include <limits>
#include <string_view>

#include "files/file_system.h"
#include "files/path_names.h"
#include "util/ansi.h"
#include "util/time_text.h"

namespace quorvel {
namespace {

constexpr std::int64_t UNIX_REFUSED_ABOVE = 512000;
constexpr std::int64_t UNIX_WARNED_ABOVE = 256000;
constexpr std::uint64_t EXAMINED_BYTES = 16384;

constexpr const char* ADVICE_HEAD = " a program such as Notepad++\r\n";
constexpr const char* ADVICE_END = "to convert the line endings to Windows-type (CR+LF).";

// What the byte-order marks and the RTF signature at the front of a file say.
TextEncoding EncodingByMark(std::string_view start) {
  using namespace std::string_view_literals;
  if (start == "{\\rtf") return TextEncoding::rtf;
  if (start.starts_with("\xFF\xFE")) return TextEncoding::utf16LittleEndian;
  if (start.starts_with("\xFE\xFF")) return TextEncoding::utf16BigEndian;
  if (start.starts_with(BYTE_ORDER_MARK)) return TextEncoding::utf8;
  if (start.starts_with("\0\0\xFE\xFF"sv)) return TextEncoding::utf32BigEndian;
  return TextEncoding::ansi;
}

// XML without a byte-order mark is UTF-8 unless zero bytes show otherwise.
TextEncoding EncodingOfXml(std::string_view start) {
  if (start[0] == '<') {
    return start[1] != '\0' ? TextEncoding::utf8 : TextEncoding::utf16LittleEndian;
  }
  const bool bigEndian = start[0] == '\0' && start[1] == '<';
  return bigEndian ? TextEncoding::utf16BigEndian : TextEncoding::ansi;
}

bool LooksLikeUtf8(std::string_view bytes) {
  return bytes.find("\xE2\x80") != std::string_view::npos || DeclaresUtf8(bytes);
}

// What a file without a mark looks like; unreadable where it cannot be read to its end. It is
// read piece by piece; what is looked for may also stand where two of them meet.
TextEncoding EncodingByContent(const std::string& path) {
  constexpr std::size_t PIECE_LENGTH = 65536;
  constexpr std::size_t LONGEST_SIGN = 15;  // charset="utf-8"
  bool looksLikeUtf8 = false;
  std::string seam;
  const int error = ReadFileInChunks(path, PIECE_LENGTH, [&](std::string_view piece) {
    seam += piece.substr(0, LONGEST_SIGN);
    looksLikeUtf8 = LooksLikeUtf8(seam) || LooksLikeUtf8(piece);
    const std::string_view end = piece.size() < LONGEST_SIGN ? seam : piece;
    seam = std::string(end.substr(end.size() - std::min(end.size(), LONGEST_SIGN)));
    return !looksLikeUtf8;
  });
  if (error != 0) return TextEncoding::unreadable;
  return looksLikeUtf8 ? TextEncoding::utf8 : TextEncoding::ansi;
}

FileKind KindByLineEnds(std::string_view bytes) {
  const bool hasLineFeed = bytes.find('\n') != std::string_view::npos;
  const bool hasReturn = bytes.find('\r') != std::string_view::npos;
  if (hasReturn && !hasLineFeed) return FileKind::macText;
  return hasLineFeed && !hasReturn ? FileKind::unixText : FileKind::windowsText;
}

void Inform(UserInterface& ui, const std::string& text, const std::string& title) {
  ui.Tell(text, title, Icon::information);
}

// The message about a file that cannot be read as text; empty when it can.
std::string FatalMessage(FileKind kind, const std::string& path) {
  switch (kind) {
    case FileKind::missing:
      return "File " + path + " not found.";
    case FileKind::empty:
      return "File " + path + " is zero-length.";
    case FileKind::unreadable:
      return "File " + path + "\r\n cannot be opened (permission denied).";
    case FileKind::oneToFourBytes:
      return "File " + path + "\r\ncontains only from 1 to 4 bytes.";
    case FileKind::rtf:
      return "File " + path + "\r\nis an RTF file.";
    case FileKind::otherUnicode:
      return "File " + path + "\r\nis a Unicode file but not UTF-8 encoded.";
    default:
      return {};
  }
}

void ShowMacNotice(const std::string& path, UserInterface& ui) {
  Inform(ui,
         "File " + path + "\r\nhas Macintosh-type line endings (CR).\r\n\r\nYou might wish to use" +
             ADVICE_HEAD + ADVICE_END,
         "This is a Mac-style text file");
}

// A lone LF ends no line, so such a file arrives as one long line: small ones
// pass, larger ones are worth a warning, the largest are refused.
bool AcceptUnixFile(const std::string& path, bool askToContinue, UserInterface& ui) {
  const std::optional<std::int64_t> length = FileLength(path);
  const std::int64_t size = length.value_or(0);
  if (size <= UNIX_WARNED_ABOVE) return true;
  const std::string head = "File " + path +
                           "\r\nhas Unix-type line endings (LF).\r\n\r\nThe size of this file is " +
                           SizeText(size) + "\r\n";
  if (size > UNIX_REFUSED_ABOVE) {
    Inform(ui,
           head + "so processing of this file would take a long time.\r\n\r\n" +
               "You can process this file by first using" + ADVICE_HEAD + ADVICE_END,
           "Cannot process this file");
    return false;
  }
  const std::string warning = head + "so processing of this file might be rather slow.\r\n\r\n" +
                              "It is advisable to use" + ADVICE_HEAD + ADVICE_END;
  if (!askToContinue) {
    // The title of the form that does not ask is the shorter one: so meant.
    Inform(ui, warning, "This is a Unix-style file");
    return true;
  }
  const std::string title = "This is a Unix-style text file";
  const std::string question = warning + "\r\n\r\nDo you wish to continue processing this file?";
  if (ui.Ask({question, title, Icon::none, Buttons::yesNo, Answer::no}) == Answer::yes) return true;
  ui.Tell("Operation canceled.", title, Icon::none);
  return false;
}

}  // namespace

bool DeclaresUtf8(std::string_view bytes) {
  constexpr std::string_view BEFORE = "charset";
  constexpr std::size_t LONGEST_NAME = 7;
  for (std::size_t place = bytes.find('='); place != std::string_view::npos;
       place = bytes.find('=', place + 1)) {
    if (place < BEFORE.size()) continue;
    if (LowerAscii(bytes.substr(place - BEFORE.size(), BEFORE.size())) != BEFORE) continue;
    const std::string name = LowerAscii(bytes.substr(place + 1, LONGEST_NAME));
    if (name.starts_with("utf-8") || name == "\"utf-8\"") return true;
  }
  return false;
}

TextEncoding DetectTextEncoding(const std::string& path, bool checkMarkupCharset) {
  constexpr std::uint64_t EXAMINED_START = 5;
  if (path.empty()) return TextEncoding::noPath;
  if (!FileExists(path)) return TextEncoding::missing;
  if (!IsRegularFile(path)) return TextEncoding::unreadable;
  const FileRead start = ReadFileBytes(path, EXAMINED_START);
  if (!start.error.empty()) return TextEncoding::unreadable;
  if (start.bytes.empty()) return TextEncoding::empty;
  if (start.bytes.size() < EXAMINED_START) return TextEncoding::oneToFourBytes;
  TextEncoding encoding = EncodingByMark(start.bytes);
  if (encoding != TextEncoding::ansi) return encoding;
  if (LowerExtensionOf(path) == "xml") encoding = EncodingOfXml(start.bytes);
  const bool searched =
      encoding == TextEncoding::ansi && checkMarkupCharset && HasTextFileExtension(path);
  return searched ? EncodingByContent(path) : encoding;
}

FileClass ClassifyTextFile(const std::string& path, std::uint64_t examineLimit,
                           bool checkMarkupCharset) {
  const TextEncoding encoding = DetectTextEncoding(path, checkMarkupCharset);
  switch (encoding) {
    case TextEncoding::utf8:
      return {FileKind::windowsText, true};
    case TextEncoding::utf16LittleEndian:
    case TextEncoding::utf16BigEndian:
    case TextEncoding::utf32BigEndian:
      return {FileKind::otherUnicode, false};
    case TextEncoding::ansi:
      break;
    default:
      return {static_cast<FileKind>(encoding), false};
  }
  const FileRead part = ReadFileBytes(path, examineLimit);
  if (!part.error.empty()) return {FileKind::notText, false};
  if (part.bytes.empty()) return {FileKind::empty, false};
  return {KindByLineEnds(part.bytes), false};
}

InputCheck CheckInputFile(const std::string& path, const CheckOptions& options,
                          bool& macNoticeShown, UserInterface& ui) {
  const FileClass found = ClassifyTextFile(path, EXAMINED_BYTES, true);
  InputCheck check = {false, found.kind, found.isUtf8};
  if (check.kind == FileKind::noPath) return check;
  if (const std::string message = FatalMessage(check.kind, path); !message.empty()) {
    Inform(ui, message, "Fatal error");
    return check;
  }
  if (check.kind == FileKind::notText) {
    Inform(ui, path + "\r\nis not an ANSI or UTF-8 encoded text file.", "Not a text file");
    return check;
  }
  check.accepted = true;
  if (options.quiet) return check;
  if (check.kind == FileKind::macText && !macNoticeShown) {
    macNoticeShown = true;
    ShowMacNotice(path, ui);
  }
  if (check.kind == FileKind::unixText && !AcceptUnixFile(path, options.askToContinue, ui)) {
    check.accepted = false;
    check.kind = FileKind::notText;
  }
  return check;
}

bool PassesExtensionGate(const std::string& path, const std::string& title, UserInterface& ui) {
  const std::string extension = LowerExtensionOf(path);
  if (extension == "docx" || extension == "txt" || PathNamesHtml(path)) return true;
  Inform(ui, "This program acts only on text files,\r\nWord DOCX files and HTML files.", title);
  return false;
}

bool CheckInputReadable(const std::string& path, UserInterface& ui) {
  constexpr std::int64_t LARGEST_INPUT = std::numeric_limits<std::int32_t>::max();
  if (FileExists(path) && !IsRegularFile(path)) {
    Inform(ui, "File " + path + "\r\nis a device or a pipe, not a file.", "Fatal error");
    return false;
  }
  FileKind fault = FileKind::windowsText;
  if (!FileExists(path)) {
    fault = FileKind::missing;
  } else if (!ReadFileBytes(path, 1).error.empty()) {
    fault = FileKind::unreadable;
  }
  if (fault != FileKind::windowsText) {
    Inform(ui, FatalMessage(fault, path), "Fatal error");
    return false;
  }
  if (FileLength(path).value_or(0) >= LARGEST_INPUT) {
    Inform(ui, "File " + path + "\r\nis too large to be scanned: 2 GB or more.", "File too big");
    return false;
  }
  return true;
}

}  // namespace quorvel
