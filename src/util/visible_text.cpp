#include "util/visible_text.h"

#include <cstddef>
#include <cstdint>

#include "util/text_form.h"
#include "util/utf8.h"

namespace quorvel {
namespace {

void AppendEscape(std::string& text, char ch) {
  constexpr std::string_view DIGITS = "0123456789abcdef";
  constexpr std::string_view NAMED = "\n\r\t";
  constexpr std::string_view NAMES = "nrt";
  text += '\\';
  if (const std::size_t place = NAMED.find(ch); place != std::string_view::npos) {
    text += NAMES[place];
    return;
  }
  const auto byte = static_cast<std::uint8_t>(ch);
  text.append({'x', DIGITS[byte >> 4U], DIGITS[byte & 0xFU]});
}

}  // namespace

std::string VisibleName(std::string_view name) {
  std::string visible;
  while (!name.empty()) {
    std::uint32_t codePoint = 0;
    std::size_t length = ReadCodePoint(name, codePoint);
    const bool isShown = length > 0 && !IsControl(codePoint);
    if (length == 0) length = 1;
    const std::string_view character = name.substr(0, length);
    if (isShown) {
      visible += character;
    } else {
      for (const char ch : character) AppendEscape(visible, ch);
    }
    name.remove_prefix(length);
  }
  return visible;
}

std::string VisibleLines(std::string_view text) {
  std::string visible;
  for (;;) {
    const std::size_t end = text.find(LINE_END);
    visible += VisibleName(text.substr(0, end));
    if (end == std::string_view::npos) return visible;
    visible += LINE_END;
    text.remove_prefix(end + LINE_END.size());
  }
}

}  // namespace quorvel
