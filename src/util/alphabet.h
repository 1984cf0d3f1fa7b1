// The alphabet of a document: which characters are letters and digits, how they change case and how
// they sort.
//
// There are two alphabets, one for each way of reading a text. The Windows-1252 alphabet has
// exactly the letters of characters.h. The Unicode alphabet has all letters and marks, and agrees
// with the Windows-1252 alphabet on every letter that both contain. A document carries the alphabet
// that it was read with. Tokenizing, word lists, patterns, keyword marks and sort keys all use it.
// Both alphabets live until the program ends and never change.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>

#include "util/characters.h"

namespace quorvel {

// The two ways of reading a text. `windows1252` repairs UTF-8 as far as Windows-1252 has the
// characters.
enum class Reading { windows1252, unicode };

class Alphabet {
 public:
  [[nodiscard]] static const Alphabet& Windows1252();
  [[nodiscard]] static const Alphabet& Unicode();  // built on first use
  [[nodiscard]] static const Alphabet& Of(Reading reading);

  [[nodiscard]] Reading ReadingOf() const { return reading_; }

  // The class bits of a code unit. A surrogate has CLASS_SURROGATE alone, because the class belongs
  // to the whole character.
  [[nodiscard]] std::uint8_t ClassOf(char16_t ch) const { return ch < size_ ? classes_[ch] : 0; }

  // The class bits of the character that the code unit at the 0-based index `place` belongs to.
  [[nodiscard]] std::uint8_t ClassAt(std::u16string_view text, std::size_t place) const {
    const std::uint8_t bits = ClassOf(text[place]);
    return (bits & CLASS_SURROGATE) == 0 ? bits : ClassOfPairAt(text, place);
  }

  // For a single code unit.
  [[nodiscard]] bool IsLetter(char16_t ch) const { return (ClassOf(ch) & CLASS_LETTER) != 0; }
  [[nodiscard]] bool IsDigit(char16_t ch) const { return (ClassOf(ch) & CLASS_DIGIT) != 0; }
  [[nodiscard]] bool IsLowerVowel(char16_t ch) const {
    return (ClassOf(ch) & CLASS_LOWER_VOWEL) != 0;
  }

  // For the character at the 0-based index `place`.
  [[nodiscard]] bool IsWordCharacterAt(std::u16string_view text, std::size_t place) const {
    return (ClassAt(text, place) & WORD_CLASSES) != 0;
  }

  // True when `text` contains no letter. An empty text contains none.
  [[nodiscard]] bool ContainsNoLetter(std::u16string_view text) const;

  // The 0-based end (exclusive) of the run of word characters that begins at the 0-based `place`.
  [[nodiscard]] std::size_t EndOfRun(std::u16string_view text, std::size_t place) const;

  // The character in lower or upper case. A character without such a form of one code unit is
  // returned unchanged.
  [[nodiscard]] char16_t ToLowerCase(char16_t ch) const { return ch < size_ ? lower_[ch] : ch; }
  [[nodiscard]] char16_t ToUpperCase(char16_t ch) const { return ch < size_ ? upper_[ch] : ch; }
  [[nodiscard]] std::u16string ToLowerCase(std::u16string_view text) const;

  // The characters whose lower-case form is `lower`, except `lower` itself and its upper-case form.
  [[nodiscard]] std::u16string_view OtherCapitalsOf(char16_t lower) const;

  // The key that a word is sorted by: lower case, umlauts and accents folded.
  [[nodiscard]] std::u16string SortKey(std::u16string_view word) const;

  // Like SortKey, but an umlaut becomes the base letter ("ä" becomes "a", not "ae").
  [[nodiscard]] std::u16string WithoutAccents(std::u16string_view word) const;

  // Converts between text and the encoding of the run's files: Windows-1252 or UTF-8, depending on
  // the reading.
  void AppendEncoded(std::string& bytes, std::u16string_view text) const;
  [[nodiscard]] std::string Encode(std::u16string_view text) const;
  [[nodiscard]] std::u16string Decode(std::string_view bytes) const;

  // The number of code units that `bytes` decode to.
  [[nodiscard]] std::size_t CodeUnitsIn(std::string_view bytes) const;

  // Text that the user typed, as UTF-8, converted for comparison with the words of a document.
  [[nodiscard]] std::u16string Typed(std::string_view text) const;

 private:
  struct Tables;

  Alphabet();  // the Windows-1252 alphabet
  explicit Alphabet(const Tables& tables);

  [[nodiscard]] static std::uint8_t ClassOfPairAt(std::u16string_view text, std::size_t place);

  Reading reading_;
  const std::uint8_t* classes_;  // indexed by code unit, `size_` entries
  const char16_t* lower_;
  const char16_t* upper_;
  std::size_t size_;
  std::map<char16_t, std::u16string> otherCapitals_;  // keyed by the lower-case letter
};

}  // namespace quorvel
