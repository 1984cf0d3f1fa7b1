#include "unicode/declared_charset.h"

#include <algorithm>
#include <array>

#include "util/ascii.h"

namespace quorvel {
namespace {

constexpr std::string_view BLANKS = " \t\r\n";

struct CharsetAlias {
  std::string_view name;
  Charset charset;
};

// The names that browsers accept, and a few other common ones.
constexpr std::array CHARSET_NAMES = {
    CharsetAlias{"utf-8", Charset::utf8},
    CharsetAlias{"utf8", Charset::utf8},
    CharsetAlias{"unicode-1-1-utf-8", Charset::utf8},
    CharsetAlias{"utf-16", Charset::utf8},
    CharsetAlias{"utf-16le", Charset::utf8},
    CharsetAlias{"utf-16be", Charset::utf8},
    CharsetAlias{"unicode", Charset::utf8},
    CharsetAlias{"windows-1252", Charset::windows1252},
    CharsetAlias{"cp1252", Charset::windows1252},
    CharsetAlias{"cp-1252", Charset::windows1252},
    CharsetAlias{"x-cp1252", Charset::windows1252},
    CharsetAlias{"iso-8859-1", Charset::windows1252},
    CharsetAlias{"iso8859-1", Charset::windows1252},
    CharsetAlias{"iso88591", Charset::windows1252},
    CharsetAlias{"iso_8859-1", Charset::windows1252},
    CharsetAlias{"iso_8859-1:1987", Charset::windows1252},
    CharsetAlias{"iso-ir-100", Charset::windows1252},
    CharsetAlias{"latin1", Charset::windows1252},
    CharsetAlias{"latin-1", Charset::windows1252},
    CharsetAlias{"l1", Charset::windows1252},
    CharsetAlias{"cp819", Charset::windows1252},
    CharsetAlias{"ibm819", Charset::windows1252},
    CharsetAlias{"csisolatin1", Charset::windows1252},
    CharsetAlias{"us-ascii", Charset::windows1252},
    CharsetAlias{"ascii", Charset::windows1252},
    CharsetAlias{"ansi_x3.4-1968", Charset::windows1252},
    CharsetAlias{"iso-8859-15", Charset::iso885915},
    CharsetAlias{"iso8859-15", Charset::iso885915},
    CharsetAlias{"iso885915", Charset::iso885915},
    CharsetAlias{"iso_8859-15", Charset::iso885915},
    CharsetAlias{"latin9", Charset::iso885915},
    CharsetAlias{"latin-9", Charset::iso885915},
    CharsetAlias{"l9", Charset::iso885915},
    CharsetAlias{"csisolatin9", Charset::iso885915},
};

bool IsNameCharacter(char ch) {
  constexpr std::string_view OTHERS = "-_.:+()";
  return (ch >= 'a' && ch <= 'z') || (ch >= '0' && ch <= '9') ||
         OTHERS.find(ch) != std::string_view::npos;
}

// The value after `key` and "=" in a tag in lower case, without its quotation marks.
std::string NameBehind(std::string_view tag, std::string_view key) {
  for (std::size_t place = tag.find(key); place != std::string_view::npos;
       place = tag.find(key, place + 1)) {
    std::string_view rest = tag.substr(place + key.size());
    rest.remove_prefix(std::min(rest.find_first_not_of(BLANKS), rest.size()));
    if (!rest.starts_with('=')) continue;
    rest.remove_prefix(std::min(rest.find_first_not_of(" \t\r\n=\"'"), rest.size()));
    const auto* const end = std::find_if_not(rest.begin(), rest.end(), IsNameCharacter);
    if (end != rest.begin()) return {rest.begin(), end};
  }
  return {};
}

// Only UTF-16 XML without a byte-order mark begins with these bytes.
std::optional<Charset> CharsetByZeros(std::string_view bytes) {
  using namespace std::string_view_literals;
  if (bytes.starts_with("<\0"sv)) return Charset::utf16LittleEndian;
  if (bytes.starts_with("\0<"sv)) return Charset::utf16BigEndian;
  return std::nullopt;
}

}  // namespace

std::string DeclaredCharset(std::string_view markup) {
  constexpr std::size_t LONGEST_TAG = 1024;
  constexpr std::size_t LONGEST_NAME = 8;
  std::string name;
  for (std::size_t place = markup.find('<'); name.empty() && place != std::string_view::npos;
       place = markup.find('<', place + 1)) {
    const std::string_view rest = markup.substr(place);
    const std::string start = LowerAscii(rest.substr(0, LONGEST_NAME));
    if (start.starts_with("</head") || start.starts_with("<body")) break;
    if (start.starts_with("<!--")) {
      // As in browsers, "<!-->" is a whole comment.
      place = std::min(markup.find("-->", place + 2), markup.size() - 1);
    } else if (start.starts_with("<?xml") || start.starts_with("<meta")) {
      const std::string_view tagged = rest.substr(0, LONGEST_TAG);
      const std::string tag = LowerAscii(tagged.substr(0, tagged.find('>')));
      name = NameBehind(tag, start.starts_with("<?") ? "encoding" : "charset");
    }
  }
  return name;
}

std::optional<Charset> CharsetNamed(std::string_view name) {
  const auto* const found = std::ranges::find(CHARSET_NAMES, name, &CharsetAlias::name);
  if (found == CHARSET_NAMES.end()) return std::nullopt;
  return found->charset;
}

DecodedMarkup DecodeMarkup(std::string_view bytes) {
  if (const std::optional<CharsetMark> mark = CharsetMarkOf(bytes)) {
    if (mark->charset == Charset::utf32) return {{}, "utf-32"};
    return {Decode(bytes.substr(mark->length), mark->charset), {}};
  }
  if (const std::optional<Charset> charset = CharsetByZeros(bytes)) {
    return {Decode(bytes, *charset), {}};
  }
  std::string name = DeclaredCharset(bytes);
  if (name.empty()) return {TextOfBytes(bytes), {}};
  const std::optional<Charset> charset = CharsetNamed(name);
  if (!charset) return {{}, std::move(name)};
  return {Decode(bytes, *charset), {}};
}

}  // namespace quorvel
