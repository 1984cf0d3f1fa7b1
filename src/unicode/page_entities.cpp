#include "unicode/page_entities.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <optional>

#include "util/ansi.h"
#include "util/utf8.h"

namespace quorvel {
namespace {

// A named entity: one or two characters.
struct NamedEntity {
  std::string_view name;  // without "&" and ";"
  char32_t first;
  char32_t second = 0;
};

// Sorted by name for the binary search.
constexpr NamedEntity NAMED_ENTITIES[] = {
#include "unicode/named_entities.inc"
};
static_assert(std::ranges::is_sorted(NAMED_ENTITIES, {}, &NamedEntity::name));

// The maximum length between "&" and ";". The longest name has 31 characters, and no number needs
// more.
constexpr std::size_t LONGEST_REFERENCE = 32;

std::optional<NamedEntity> EntityNamed(std::string_view name) {
  const auto* const found = std::ranges::lower_bound(NAMED_ENTITIES, name, {}, &NamedEntity::name);
  if (found == std::end(NAMED_ENTITIES) || found->name != name) return std::nullopt;
  return *found;
}

// The value of a digit. For any other character, a number that no base has as a digit.
std::uint32_t DigitValue(char ch) {
  constexpr std::uint32_t NO_DIGIT = 99;
  if (ch >= '0' && ch <= '9') return static_cast<std::uint32_t>(ch - '0');
  const char lower = static_cast<char>(static_cast<unsigned>(ch) | 0x20U);
  return lower >= 'a' ? static_cast<std::uint32_t>(lower - 'a' + 10) : NO_DIGIT;
}

// Parses "233" or "xE9". Returns at most BEHIND_LAST, or nothing for anything that is not a number.
std::optional<char32_t> NumberOf(std::string_view digits) {
  constexpr std::uint32_t BEHIND_LAST = 0x110000;
  const bool isHex = digits.starts_with('x') || digits.starts_with('X');
  if (isHex) digits.remove_prefix(1);
  if (digits.empty()) return std::nullopt;
  const std::uint32_t base = isHex ? 16 : 10;
  std::uint32_t number = 0;
  for (const char ch : digits) {
    const std::uint32_t digit = DigitValue(ch);
    if (digit >= base) return std::nullopt;
    number = std::min(number * base + digit, BEHIND_LAST);
  }
  return number;
}

char32_t CharacterNumbered(char32_t number) {
  if (number == 0 || number > 0x10FFFF || (number >= 0xD800 && number < 0xE000)) return 0xFFFD;
  if (number < 0x80 || number >= 0xA0) return number;
  const char byte = static_cast<char>(number);
  return DecodeAnsi(std::string_view(&byte, 1)).front();
}

std::optional<NamedEntity> EntityOf(std::string_view reference) {
  if (!reference.starts_with('#')) return EntityNamed(reference);
  const std::optional<char32_t> number = NumberOf(reference.substr(1));
  if (!number) return std::nullopt;
  return NamedEntity{"", CharacterNumbered(*number)};
}

}  // namespace

std::string DecodeReferences(std::string_view text) {
  std::string decoded;
  decoded.reserve(text.size());
  std::size_t done = 0;
  for (std::size_t place = text.find('&'); place != std::string_view::npos;
       place = text.find('&', place + 1)) {
    const std::string_view rest = text.substr(place + 1, LONGEST_REFERENCE + 1);
    const std::size_t length = rest.find(';');
    if (length == std::string_view::npos) continue;
    const std::optional<NamedEntity> entity = EntityOf(rest.substr(0, length));
    if (!entity) continue;
    const bool isBlank = entity->first <= ' ' || entity->first == 0xA0;
    decoded.append(text, done, place - done);
    AppendUtf8(decoded, isBlank ? U' ' : entity->first);
    if (entity->second != 0) AppendUtf8(decoded, entity->second);
    place += length + 1;
    done = place + 1;
  }
  decoded += text.substr(done);
  return decoded;
}

}  // namespace quorvel
