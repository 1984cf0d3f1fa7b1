#include "input/lost_characters.h"

#include <cstddef>

#include "files/path_names.h"
#include "input/html_text.h"
#include "input/utf8_repair.h"
#include "util/ansi.h"

namespace quorvel {
namespace {

bool IsAscii(char byte) { return static_cast<std::uint8_t>(byte) < 0x80; }

// How many bytes at the beginning are ASCII, looked at in blocks.
std::size_t AsciiLength(std::string_view bytes) {
  constexpr std::size_t BLOCK = 64;
  std::size_t length = 0;
  while (length + BLOCK <= bytes.size()) {
    std::uint8_t all = 0;
    for (std::size_t i = 0; i < BLOCK; ++i) all |= static_cast<std::uint8_t>(bytes[length + i]);
    if (all >= 0x80) break;
    length += BLOCK;
  }
  while (length < bytes.size() && IsAscii(bytes[length])) ++length;
  return length;
}

// Calls `take` with each character of several bytes, and with nothing for a byte that belongs to no
// character, until it gives false.
template <typename Take>
void EachLongCharacter(std::string_view bytes, const Take& take) {
  while (!bytes.empty()) {
    if (IsAscii(bytes.front())) {
      bytes.remove_prefix(AsciiLength(bytes));
      continue;
    }
    std::uint32_t codePoint = 0;
    const std::size_t length = ReadCodePoint(bytes, codePoint);
    if (!take(length == 0 ? nullptr : &codePoint)) return;
    bytes.remove_prefix(length == 0 ? 1 : length);
  }
}

// Nothing is lost of what is Windows-1252 indeed.
std::int64_t CharactersTakenForOthers(std::string_view bytes) {
  std::int64_t count = 0;
  EachLongCharacter(bytes, [&count](const std::uint32_t* codePoint) {
    count = codePoint != nullptr ? count + 1 : 0;
    return codePoint != nullptr;
  });
  return count;
}

}  // namespace

std::int64_t CharactersNotRepaired(std::string_view bytes) {
  std::int64_t count = 0;
  EachLongCharacter(bytes, [&count](const std::uint32_t* codePoint) {
    if (codePoint != nullptr && !IsRepaired(*codePoint)) ++count;
    return true;
  });
  return count;
}

std::int64_t LostCharacters(const InputBytes& input, bool isUtf8) {
  std::string_view bytes = input.View();
  if (bytes.starts_with(BYTE_ORDER_MARK)) bytes.remove_prefix(BYTE_ORDER_MARK.size());
  // A page that says that it is UTF-8 is read so, whatever it was taken for.
  if (PathNamesHtml(input.Path())) {
    bytes.remove_prefix(FindHtmlBody(bytes, isUtf8).value_or(0));
  }
  return isUtf8 ? CharactersNotRepaired(bytes) : CharactersTakenForOthers(bytes);
}

}  // namespace quorvel
