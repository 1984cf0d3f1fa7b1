#include "input/file_kind.h"

#include <string>

#include "files/path_names.h"
#include "util/ascii.h"
#include "util/utf8.h"

namespace quorvel {
namespace {

// The signature of compound files: documents of older office programs, and encrypted newer ones.
constexpr std::string_view COMPOUND_MARK = "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1";

// The encoding according to a byte-order mark or an RTF signature.
TextEncoding EncodingByMark(std::string_view start) {
  using namespace std::string_view_literals;
  if (start == "{\\rtf") return TextEncoding::rtf;
  if (start.starts_with("\xFF\xFE")) return TextEncoding::utf16LittleEndian;
  if (start.starts_with("\xFE\xFF")) return TextEncoding::utf16BigEndian;
  if (start.starts_with(BYTE_ORDER_MARK)) return TextEncoding::utf8;
  if (start.starts_with("\0\0\xFE\xFF"sv)) return TextEncoding::utf32BigEndian;
  return TextEncoding::ansi;
}

// XML without a byte-order mark is UTF-8, unless zero bytes indicate UTF-16.
TextEncoding EncodingOfXml(std::string_view start) {
  using namespace std::string_view_literals;
  if (start.starts_with("<\0"sv)) return TextEncoding::utf16LittleEndian;
  if (start.starts_with("\0<"sv)) return TextEncoding::utf16BigEndian;
  return start.starts_with('<') ? TextEncoding::utf8 : TextEncoding::ansi;
}

bool LooksLikeUtf8(std::string_view bytes) {
  return bytes.find("\xE2\x80") != std::string_view::npos || DeclaresUtf8(bytes);
}

FileKind KindByLineEnds(std::string_view bytes) {
  const bool hasLineFeed = bytes.find('\n') != std::string_view::npos;
  const bool hasReturn = bytes.find('\r') != std::string_view::npos;
  if (hasReturn && !hasLineFeed) return FileKind::macText;
  return hasLineFeed && !hasReturn ? FileKind::unixText : FileKind::windowsText;
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

TextEncoding DetectTextEncoding(const InputBytes& input, bool checkMarkupCharset) {
  constexpr std::size_t EXAMINED_START = 5;
  const std::string_view bytes = input.View();
  const std::string_view start = bytes.substr(0, EXAMINED_START);
  if (input.Path().empty()) return TextEncoding::noPath;
  if (bytes.empty()) return TextEncoding::empty;
  if (start.size() < EXAMINED_START) return TextEncoding::oneToFourBytes;
  if (bytes.starts_with(COMPOUND_MARK)) return TextEncoding::compound;
  TextEncoding encoding = EncodingByMark(start);
  if (encoding != TextEncoding::ansi) return encoding;
  if (LowerExtensionOf(input.Path()) == "xml") encoding = EncodingOfXml(start);
  if (encoding != TextEncoding::ansi) return encoding;
  const bool searched = checkMarkupCharset && HasTextFileExtension(input.Path());
  return searched && LooksLikeUtf8(bytes) ? TextEncoding::utf8 : TextEncoding::ansi;
}

FileClass ClassifyTextFile(const InputBytes& input, std::size_t examineLimit,
                           bool checkMarkupCharset) {
  switch (DetectTextEncoding(input, checkMarkupCharset)) {
    case TextEncoding::noPath:
      return {FileKind::noPath};
    case TextEncoding::empty:
      return {FileKind::empty};
    case TextEncoding::oneToFourBytes:
      return {FileKind::oneToFourBytes};
    case TextEncoding::compound:
      return {FileKind::compound};
    case TextEncoding::rtf:
      return {FileKind::rtf};
    case TextEncoding::utf16LittleEndian:
    case TextEncoding::utf16BigEndian:
      return {FileKind::utf16};
    case TextEncoding::utf32BigEndian:
      return {FileKind::otherUnicode};
    case TextEncoding::utf8:
      return {FileKind::windowsText, true};
    case TextEncoding::ansi:
      break;
  }
  return {KindByLineEnds(input.View().substr(0, examineLimit))};
}

}  // namespace quorvel
