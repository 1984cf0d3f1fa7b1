#include "util/characters.h"

#include <algorithm>

namespace quorvel {
namespace {

constexpr std::u16string_view UMLAUTS = u"ŒÄÆÖÜäæöüß";
constexpr std::u16string_view UMLAUT_PAIRS = u"OeAeAeOeUeaeaeoeuess";

constexpr std::u16string_view ACCENTED =
    u"ŠŸÀÁÂÃÄÅÇÈÉÊËÌÍÎÏÐÑÒÓÔÕÖØÙÚÛÜÝšÿàáâãäåçèéêëìíîïñòóôõöøùúûüý";
constexpr std::u16string_view UNACCENTED =
    u"SYAAAAAACEEEEIIIIDNOOOOOOUUUUYsyaaaaaaceeeeiiiinoooooouuuuy";
static_assert(UMLAUT_PAIRS.size() == 2 * UMLAUTS.size());
static_assert(ACCENTED.size() == UNACCENTED.size());

using detail::Mapping;

constexpr Mapping WITHOUT_ACCENT = detail::MakeMapping(ACCENTED, UNACCENTED);

std::u16string MappedText(const Mapping& mapping, std::u16string_view text) {
  std::u16string result(text);
  for (char16_t& ch : result) ch = detail::Mapped(mapping, ch);
  return result;
}

std::u16string TransliterateUmlauts(std::u16string_view text) {
  std::u16string result;
  for (char16_t ch : text) {
    const std::size_t place = UMLAUTS.find(ch);
    if (place == std::u16string_view::npos) {
      result += ch;
    } else {
      result += UMLAUT_PAIRS.substr(2 * place, 2);
    }
  }
  return result;
}

}  // namespace

std::u16string ToLowerCase(std::u16string_view text) { return MappedText(detail::TO_LOWER, text); }

bool EqualsInLowerCase(std::u16string_view text, std::u16string_view lower) {
  return std::equal(text.begin(), text.end(), lower.begin(), lower.end(),
                    [](char16_t ch, char16_t lowerCh) { return ToLowerCase(ch) == lowerCh; });
}

std::u16string StripAccents(std::u16string_view text) { return MappedText(WITHOUT_ACCENT, text); }

std::u16string FoldForKey(std::u16string_view text) {
  return StripAccents(TransliterateUmlauts(text));
}

}  // namespace quorvel
