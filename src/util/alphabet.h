// Which characters are letters and digits, how they change case and how they sort: one value for
// each of the two ways to read a text.
//
// The alphabet of Windows-1252 has the letters of characters.h and nothing else. That of Unicode
// has all letters and marks, and agrees with the other on every letter of that. A document carries
// the alphabet that it was read in, and whatever tells its words apart asks that: cutting words,
// word lists, patterns, marks, sort keys. Both live as long as the program and are never changed.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>

#include "util/characters.h"

namespace quorvel {

// The two ways to read a text: as Windows-1252, UTF-8 repaired as far as that holds it, or as
// Unicode.
enum class Reading { windows1252, unicode };

class Alphabet {
 public:
  [[nodiscard]] static const Alphabet& Windows1252();
  [[nodiscard]] static const Alphabet& Unicode();  // made when it is first asked for
  [[nodiscard]] static const Alphabet& Of(Reading reading);

  [[nodiscard]] Reading ReadingOf() const { return reading_; }

  // The class bits of a code unit; those of a character of two code units stand for neither of them
  // alone.
  [[nodiscard]] std::uint8_t ClassOf(char16_t ch) const { return ch < size_ ? classes_[ch] : 0; }

  // The class bits of the character that the code unit at the 0-based `place` belongs to.
  [[nodiscard]] std::uint8_t ClassAt(std::u16string_view text, std::size_t place) const {
    const std::uint8_t bits = ClassOf(text[place]);
    return (bits & CLASS_SURROGATE) == 0 ? bits : ClassOfPairAt(text, place);
  }

  // Of a code unit.
  [[nodiscard]] bool IsLetter(char16_t ch) const { return (ClassOf(ch) & CLASS_LETTER) != 0; }
  [[nodiscard]] bool IsDigit(char16_t ch) const { return (ClassOf(ch) & CLASS_DIGIT) != 0; }
  [[nodiscard]] bool IsLowerVowel(char16_t ch) const {
    return (ClassOf(ch) & CLASS_LOWER_VOWEL) != 0;
  }

  // Of the character at the 0-based `place`.
  [[nodiscard]] bool IsWordCharacterAt(std::u16string_view text, std::size_t place) const {
    return (ClassAt(text, place) & WORD_CLASSES) != 0;
  }

  // True when `text` holds no letter at all; so for the empty text.
  [[nodiscard]] bool ContainsNoLetter(std::u16string_view text) const;

  // Where the run of word characters ends that begins at `place`: the place behind it, both
  // 0-based.
  [[nodiscard]] std::size_t EndOfRun(std::u16string_view text, std::size_t place) const;

  // The character in lower or upper case; itself where it has no such form of one code unit.
  [[nodiscard]] char16_t ToLowerCase(char16_t ch) const { return ch < size_ ? lower_[ch] : ch; }
  [[nodiscard]] char16_t ToUpperCase(char16_t ch) const { return ch < size_ ? upper_[ch] : ch; }
  [[nodiscard]] std::u16string ToLowerCase(std::u16string_view text) const;

  // The characters, besides `lower` and its upper case, that are `lower` in lower case.
  [[nodiscard]] std::u16string_view OtherCapitalsOf(char16_t lower) const;

  // What a word is sorted by: lower case, umlauts and accents folded.
  [[nodiscard]] std::u16string SortKey(std::u16string_view word) const;

  // The same, but that an umlaut becomes the letter without its dots.
  [[nodiscard]] std::u16string WithoutAccents(std::u16string_view word) const;

  // Text as the files of a run hold it that was read so, and back: Windows-1252 or UTF-8.
  void AppendEncoded(std::string& bytes, std::u16string_view text) const;
  [[nodiscard]] std::string Encode(std::u16string_view text) const;
  [[nodiscard]] std::u16string Decode(std::string_view bytes) const;

  // How many code units such bytes stand for.
  [[nodiscard]] std::size_t CodeUnitsIn(std::string_view bytes) const;

  // What a user has typed, UTF-8, as it is to be compared with the words of a document.
  [[nodiscard]] std::u16string Typed(std::string_view text) const;

 private:
  struct Tables;

  Alphabet();  // that of Windows-1252
  explicit Alphabet(const Tables& tables);

  [[nodiscard]] static std::uint8_t ClassOfPairAt(std::u16string_view text, std::size_t place);

  Reading reading_;
  const std::uint8_t* classes_;  // of the code units up to `size_`
  const char16_t* lower_;
  const char16_t* upper_;
  std::size_t size_;
  std::map<char16_t, std::u16string> otherCapitals_;  // by the lower-case letter
};

}  // namespace quorvel
