#include "input/docx_tags.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <optional>
#include <utility>

namespace quorvel {
namespace {

constexpr std::string_view USUAL_PREFIX = "w:";
constexpr std::string_view BLANKS = " \t\r\n";

// The namespaces of transitional and of strict documents.
constexpr std::array<std::string_view, 2> WORD_NAMESPACES = {
    "http://schemas.openxmlformats.org/wordprocessingml/2006/main",
    "http://purl.oclc.org/ooxml/wordprocessingml/main"};

// Returns the XML from its first element on.
std::string_view FirstElement(std::string_view xml) {
  constexpr std::array<std::pair<std::string_view, std::string_view>, 3> OTHERS = {
      {{"<?", "?>"}, {"<!--", "-->"}, {"<!", ">"}}};
  while (true) {
    xml.remove_prefix(std::min(xml.find('<'), xml.size()));
    const auto* const other = std::find_if(OTHERS.begin(), OTHERS.end(), [xml](const auto& one) {
      return xml.starts_with(one.first);
    });
    if (other == OTHERS.end()) return xml;
    xml.remove_prefix(std::min(xml.find(other->second, other->first.size()), xml.size()));
  }
}

struct Attribute {
  std::string_view name;
  std::string_view value;
};

// Removes the next attribute from the front of a start tag and returns it. Returns nothing at the
// end of the tag or on invalid XML.
std::optional<Attribute> TakeAttribute(std::string_view& rest) {
  rest.remove_prefix(std::min(rest.find_first_of(" \t\r\n>"), rest.size()));
  rest.remove_prefix(std::min(rest.find_first_not_of(BLANKS), rest.size()));
  const std::size_t nameEnd = rest.find_first_of(" \t\r\n=>");
  if (nameEnd == std::string_view::npos) return std::nullopt;
  const std::size_t quote = rest.find_first_not_of(" \t\r\n=", nameEnd);
  if (quote == std::string_view::npos || (rest[quote] != '"' && rest[quote] != '\'')) {
    return std::nullopt;
  }
  const std::size_t end = rest.find(rest[quote], quote + 1);
  if (end == std::string_view::npos) return std::nullopt;
  const Attribute found = {rest.substr(0, nameEnd), rest.substr(quote + 1, end - quote - 1)};
  rest.remove_prefix(end + 1);
  return found;
}

}  // namespace

Tag::Tag(std::string text) : text_(std::move(text)) {
  const std::size_t length = std::min(text_.size(), sizeof(beginning_));
  std::memcpy(&beginning_, text_.data(), length);
  std::memset(&mask_, -1, length);
}

std::size_t Tag::FindIn(std::string_view xml, std::size_t from) const {
  for (std::size_t place = xml.find('<', from); place != std::string_view::npos;
       place = xml.find('<', place + 1)) {
    std::uint32_t beginning = beginning_;
    if (xml.size() - place >= sizeof(beginning)) {
      std::memcpy(&beginning, xml.data() + place, sizeof(beginning));
    }
    if ((beginning & mask_) == beginning_ && xml.substr(place).starts_with(text_)) return place;
  }
  return std::string_view::npos;
}

std::string WordPrefixOf(std::string_view xml) {
  constexpr std::string_view DECLARATION = "xmlns";
  std::optional<std::string> prefix;
  std::string_view rest = FirstElement(xml);
  while (const std::optional<Attribute> attribute = TakeAttribute(rest)) {
    const auto* const end = WORD_NAMESPACES.end();
    if (std::find(WORD_NAMESPACES.begin(), end, attribute->value) == end) continue;
    std::string_view name = attribute->name;
    if (!name.starts_with(DECLARATION)) continue;
    name.remove_prefix(DECLARATION.size());
    if (name.empty() && !prefix) prefix = "";
    if (name.size() < 2 || name.front() != ':') continue;
    const std::string declared = std::string(name.substr(1)) + ":";
    if (!prefix || declared == USUAL_PREFIX) prefix = declared;
  }
  return prefix.value_or(std::string(USUAL_PREFIX));
}

}  // namespace quorvel
