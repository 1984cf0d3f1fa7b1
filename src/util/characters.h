// Which characters are letters, how they change case, and how accents fold.
//
// The one place where letters are defined: cutting words, lower-casing them and
// ordering them all rest on these tables. They cover the letters of Windows-1252,
// the only characters a document can hold; any other code unit is no letter and
// passes through every mapping unchanged. Comparisons elsewhere are exact, code
// unit by code unit: no locale is ever asked.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace quorvel {

// The letters of each case. The k-th lower-case letter is the partner of the
// k-th upper-case one; the last, ß, has none.
inline constexpr std::u16string_view LOWER_LETTERS =
    u"abcdefghijklmnopqrstuvwxyzšœÿàáâãäåæçèéêëìíîïðñòóôõöøùúûüýþß";
inline constexpr std::u16string_view UPPER_LETTERS =
    u"ABCDEFGHIJKLMNOPQRSTUVWXYZŠŒŸÀÁÂÃÄÅÆÇÈÉÊËÌÍÎÏÐÑÒÓÔÕÖØÙÚÛÜÝÞ";

inline constexpr std::u16string_view VOWELS =
    u"AEIOUaeiouÀÁÂÃÄÅÆÈÉÊËÌÍÎÏÒÓÔÕÖØÙÚÛÜàáâãäåæèéêëìíîïòóôõöøùúûü";

// The properties of one code unit, as bits.
enum CharacterClass : std::uint8_t {
  CLASS_LETTER = 1,
  CLASS_DIGIT = 2,
  CLASS_HYPHEN = 4,
  CLASS_LOWER_VOWEL = 8,
  CLASS_SURROGATE = 16,  // half of a character
};

// What a token is made of: letters, digits and hyphens.
inline constexpr unsigned WORD_CLASSES = CLASS_LETTER | CLASS_DIGIT | CLASS_HYPHEN;

// Every code unit from here on has no class.
inline constexpr std::size_t CLASSIFIED_CHARACTERS = 0x180;

namespace detail {
constexpr std::array<std::uint8_t, CLASSIFIED_CHARACTERS> MakeCharacterClasses() {
  std::array<std::uint8_t, CLASSIFIED_CHARACTERS> classes{};
  for (char16_t letter : LOWER_LETTERS) classes[letter] |= CLASS_LETTER;
  for (char16_t letter : UPPER_LETTERS) classes[letter] |= CLASS_LETTER;
  for (char16_t digit = u'0'; digit <= u'9'; ++digit) classes[digit] |= CLASS_DIGIT;
  classes[u'-'] |= CLASS_HYPHEN;
  for (char16_t vowel : VOWELS) {
    if (LOWER_LETTERS.find(vowel) != std::u16string_view::npos) {
      classes[vowel] |= CLASS_LOWER_VOWEL;
    }
  }
  return classes;
}
inline constexpr auto CHARACTER_CLASSES = MakeCharacterClasses();

using Mapping = std::array<char16_t, CLASSIFIED_CHARACTERS>;

// Maps the k-th character of `from` to the k-th of `to`, and any other to itself.
constexpr Mapping MakeMapping(std::u16string_view from, std::u16string_view to) {
  Mapping mapping{};
  for (std::size_t i = 0; i < mapping.size(); ++i) mapping[i] = static_cast<char16_t>(i);
  for (std::size_t i = 0; i < to.size() && i < from.size(); ++i) mapping[from[i]] = to[i];
  return mapping;
}

// Ž is no letter of a word, yet it has a lower-case form like any character.
constexpr Mapping MakeLowerMapping() {
  Mapping mapping = MakeMapping(UPPER_LETTERS, LOWER_LETTERS);
  mapping[u'Ž'] = u'ž';
  return mapping;
}

inline constexpr Mapping TO_LOWER = MakeLowerMapping();
inline constexpr Mapping TO_UPPER = MakeMapping(LOWER_LETTERS, UPPER_LETTERS);

constexpr char16_t Mapped(const Mapping& mapping, char16_t ch) {
  return ch < mapping.size() ? mapping[ch] : ch;
}
}  // namespace detail

// The class bits of `ch`; 0 for a code unit that has none.
constexpr std::uint8_t ClassOf(char16_t ch) {
  return ch < CLASSIFIED_CHARACTERS ? detail::CHARACTER_CLASSES[ch] : std::uint8_t{0};
}

// True for a letter of either case.
constexpr bool IsLetter(char16_t ch) { return (ClassOf(ch) & CLASS_LETTER) != 0; }

// True for 0 to 9.
constexpr bool IsDigit(char16_t ch) { return (ClassOf(ch) & CLASS_DIGIT) != 0; }

// True for what a token is made of: a letter, a digit or a hyphen.
constexpr bool IsWordCharacter(char16_t ch) { return (ClassOf(ch) & WORD_CLASSES) != 0; }

// True for a lower-case vowel. y, ý, ÿ and œ are none.
constexpr bool IsLowerVowel(char16_t ch) { return (ClassOf(ch) & CLASS_LOWER_VOWEL) != 0; }

// `ch` in lower case; itself when it has no lower-case form.
[[nodiscard]] constexpr char16_t ToLowerCase(char16_t ch) {
  return detail::Mapped(detail::TO_LOWER, ch);
}
[[nodiscard]] std::u16string ToLowerCase(std::u16string_view text);

// Whether `text` in lower case is `lower`; builds no string.
[[nodiscard]] bool EqualsInLowerCase(std::u16string_view text, std::u16string_view lower);

// `ch` in upper case, by the places of the letter tables; itself for ß and for
// whatever is no lower-case letter.
[[nodiscard]] constexpr char16_t ToUpperCase(char16_t ch) {
  return detail::Mapped(detail::TO_UPPER, ch);
}

// `text` with Œ Ä Æ Ö Ü ä æ ö ü ß each written as two letters. œ stays: that it
// is missing here is meant.
[[nodiscard]] std::u16string TransliterateUmlauts(std::u16string_view text);

// `text` with its accented letters written without accents. Ð becomes D while ð
// stays: that too is meant.
[[nodiscard]] std::u16string StripAccents(std::u16string_view text);

// `text` with umlauts transliterated, then accents stripped.
[[nodiscard]] std::u16string FoldForKey(std::u16string_view text);

}  // namespace quorvel
