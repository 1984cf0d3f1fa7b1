#include "input/lost_characters.h"

#include <cstddef>

#include "files/path_names.h"
#include "input/html_text.h"
#include "input/utf8_repair.h"
#include "util/ascii.h"
#include "util/utf8.h"

namespace quorvel {
namespace {

// Calls `take` for each character of several bytes, and with null for each byte that belongs to no
// character, until it returns false.
template <typename Take>
void EachLongCharacter(std::string_view bytes, const Take& take) {
  while (true) {
    bytes.remove_prefix(AsciiLength(bytes));
    if (bytes.empty()) return;
    std::uint32_t codePoint = 0;
    const std::size_t length = ReadCodePoint(bytes, codePoint);
    if (!take(length == 0 ? nullptr : &codePoint)) return;
    bytes.remove_prefix(length == 0 ? 1 : length);
  }
}

// Returns 0 for real Windows-1252, because nothing is lost then.
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
  // A page that declares UTF-8 is read as UTF-8, whatever encoding was assumed.
  if (PathNamesHtml(input.Path())) {
    bytes.remove_prefix(FindHtmlBody(bytes, isUtf8).value_or(0));
  }
  return isUtf8 ? CharactersNotRepaired(bytes) : CharactersTakenForOthers(bytes);
}

}  // namespace quorvel
