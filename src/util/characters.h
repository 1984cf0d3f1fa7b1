// The letters of Windows-1252: which characters are letters, how they change case, and how accents
// fold.
//
// All code that cuts, lower-cases or orders words in Windows-1252 uses these tables, and the
// Unicode alphabet agrees with them. Any other code unit is not a letter, and every mapping leaves
// it unchanged. Comparisons elsewhere are exact, code unit by code unit. No locale is used.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace quorvel {

// The letters of each case. The k-th lower-case letter corresponds to the k-th upper-case letter.
// The last one, ß, has no upper-case letter.
inline constexpr std::u16string_view LOWER_LETTERS =
    u"abcdefghijklmnopqrstuvwxyzšœÿàáâãäåæçèéêëìíîïðñòóôõöøùúûüýþß";
inline constexpr std::u16string_view UPPER_LETTERS =
    u"ABCDEFGHIJKLMNOPQRSTUVWXYZŠŒŸÀÁÂÃÄÅÆÇÈÉÊËÌÍÎÏÐÑÒÓÔÕÖØÙÚÛÜÝÞ";

inline constexpr std::u16string_view VOWELS =
    u"AEIOUaeiouÀÁÂÃÄÅÆÈÉÊËÌÍÎÏÒÓÔÕÖØÙÚÛÜàáâãäåæèéêëìíîïòóôõöøùúûü";

// The properties of one code unit, as bits. CLASS_SURROGATE marks half of a surrogate pair.
enum CharacterClass : std::uint8_t {
  CLASS_LETTER = 1,
  CLASS_DIGIT = 2,
  CLASS_HYPHEN = 4,
  CLASS_LOWER_VOWEL = 8,
  CLASS_SURROGATE = 16,
};

// The characters of a token: letters, digits and hyphens.
inline constexpr unsigned WORD_CLASSES = CLASS_LETTER | CLASS_DIGIT | CLASS_HYPHEN;

// Code units from here on have no class.
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

// Maps the k-th character of `from` to the k-th character of `to`, and any other character to
// itself.
constexpr Mapping MakeMapping(std::u16string_view from, std::u16string_view to) {
  Mapping mapping{};
  for (std::size_t i = 0; i < mapping.size(); ++i) mapping[i] = static_cast<char16_t>(i);
  for (std::size_t i = 0; i < to.size() && i < from.size(); ++i) mapping[from[i]] = to[i];
  return mapping;
}

// Ž does not count as a letter of a word, but it has a lower-case form.
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

// The class bits of `ch`, or 0.
constexpr std::uint8_t ClassOf(char16_t ch) {
  return ch < CLASSIFIED_CHARACTERS ? detail::CHARACTER_CLASSES[ch] : std::uint8_t{0};
}

// True for a letter of either case.
constexpr bool IsLetter(char16_t ch) { return (ClassOf(ch) & CLASS_LETTER) != 0; }

// True for 0 to 9.
constexpr bool IsDigit(char16_t ch) { return (ClassOf(ch) & CLASS_DIGIT) != 0; }

// True for a letter, a digit or a hyphen.
constexpr bool IsWordCharacter(char16_t ch) { return (ClassOf(ch) & WORD_CLASSES) != 0; }

// True for a lower-case vowel. y, ý, ÿ and œ do not count as vowels.
constexpr bool IsLowerVowel(char16_t ch) { return (ClassOf(ch) & CLASS_LOWER_VOWEL) != 0; }

// Returns `ch` in lower case, or unchanged when it has no lower-case form.
[[nodiscard]] constexpr char16_t ToLowerCase(char16_t ch) {
  return detail::Mapped(detail::TO_LOWER, ch);
}
[[nodiscard]] std::u16string ToLowerCase(std::u16string_view text);

// True when `text` in lower case equals `lower`. Allocates nothing.
[[nodiscard]] bool EqualsInLowerCase(std::u16string_view text, std::u16string_view lower);

// Returns `ch` in upper case, using the letter tables. ß and all characters that are not lower-case
// letters are returned unchanged.
[[nodiscard]] constexpr char16_t ToUpperCase(char16_t ch) {
  return detail::Mapped(detail::TO_UPPER, ch);
}

// Writes accented letters without their accents. Compatibility: Ð becomes D but ð stays, because
// the order of the words in users' listings and index files depends on it.
[[nodiscard]] std::u16string StripAccents(std::u16string_view text);

// Writes each of Œ Ä Æ Ö Ü ä æ ö ü ß as two letters, then strips accents. Compatibility: œ stays,
// because the order of the words in users' listings and index files depends on it.
[[nodiscard]] std::u16string FoldForKey(std::u16string_view text);

}  // namespace quorvel
