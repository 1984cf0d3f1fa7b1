#include "util/alphabet.h"

#include <utf8proc.h>

#include <algorithm>
#include <array>
#include <vector>

#include "util/ansi.h"
#include "util/normalization.h"
#include "util/utf8.h"

// Character properties come from the utf8proc library. Its look-ups are too slow for every
// character of a text, so the properties of all code units are stored in tables once. Characters of
// two code units are rare and are looked up each time.

namespace quorvel {
namespace {

constexpr std::size_t CODE_UNITS = 0x10000;

bool IsSurrogate(char32_t ch) { return ch >= 0xD800 && ch < 0xE000; }

// True when the Windows-1252 alphabet has this letter.
bool IsWindowsLetter(char32_t ch) {
  return ch < CLASSIFIED_CHARACTERS && IsLetter(static_cast<char16_t>(ch));
}

utf8proc_category_t CategoryOf(char32_t ch) {
  return utf8proc_category(static_cast<utf8proc_int32_t>(ch));
}

bool IsMark(utf8proc_category_t category) {
  return category >= UTF8PROC_CATEGORY_MN && category <= UTF8PROC_CATEGORY_ME;
}

// The canonical decomposition of a character.
std::u32string Decomposed(char32_t ch) {
  constexpr std::size_t LONGEST = 16;  // no decomposition has more than four characters
  std::array<utf8proc_int32_t, LONGEST> characters{};
  int boundary = 0;
  const utf8proc_ssize_t length = utf8proc_decompose_char(
      static_cast<utf8proc_int32_t>(ch), characters.data(), LONGEST, UTF8PROC_DECOMPOSE, &boundary);
  if (length < 1 || length > std::ssize(characters)) return {ch};
  return {characters.begin(), characters.begin() + length};
}

// The Latin letter ı is a vowel, but it has no decomposition.
bool IsVowelInLowerCase(char32_t ch) {
  const char32_t base = Decomposed(ch).front();
  return ch == U'ı' || (base < CLASSIFIED_CHARACTERS && IsLowerVowel(static_cast<char16_t>(base)));
}

std::uint8_t UnicodeClassOf(char32_t ch) {
  if (IsSurrogate(ch)) return CLASS_SURROGATE;
  if (ch == U'-') return CLASS_HYPHEN;
  const utf8proc_category_t category = CategoryOf(ch);
  if (category == UTF8PROC_CATEGORY_ND) return CLASS_DIGIT;
  if (IsMark(category)) return CLASS_LETTER;
  // A modifier letter in Unicode, but on its own it is an accent and belongs to no word.
  if (ch == U'ˆ') return 0;
  if (category < UTF8PROC_CATEGORY_LU || category > UTF8PROC_CATEGORY_LO) return 0;
  const bool isVowel = category == UTF8PROC_CATEGORY_LL && IsVowelInLowerCase(ch);
  return static_cast<std::uint8_t>(CLASS_LETTER | (isVowel ? CLASS_LOWER_VOWEL : 0));
}

char32_t UnicodeLowerCase(char32_t ch) {
  return static_cast<char32_t>(utf8proc_tolower(static_cast<utf8proc_int32_t>(ch)));
}

char32_t UnicodeUpperCase(char32_t ch) {
  return static_cast<char32_t>(utf8proc_toupper(static_cast<utf8proc_int32_t>(ch)));
}

// Letters of Windows-1252 sort in the same way wherever they occur in a decomposition: "ǟ" sorts as
// "a", because it is "ä" with another accent, and "ǽ" sorts as "ae".
void AppendFolded(std::u16string& folded, char32_t ch) {
  if (IsWindowsLetter(ch)) {
    const auto letter = static_cast<char16_t>(ch);
    folded += FoldForKey({&letter, 1});
    return;
  }
  for (const char32_t part : Decomposed(ch)) {
    if (IsMark(CategoryOf(part))) continue;
    if (part != ch && IsWindowsLetter(part)) {
      AppendFolded(folded, part);
    } else {
      AppendCodePoint(folded, part);
    }
  }
}

std::u16string Folded(std::u16string_view text) {
  std::u16string folded;
  for (std::size_t i = 0; i < text.size();) AppendFolded(folded, NextCodePoint(text, i));
  return folded;
}

}  // namespace

struct Alphabet::Tables {
  std::vector<std::uint8_t> classes;
  std::u16string lower;
  std::u16string upper;

  static Tables OfUnicode() {
    Tables tables;
    for (char32_t ch = 0; ch < CODE_UNITS; ++ch) {
      tables.classes.push_back(UnicodeClassOf(ch));
      const char32_t lower = UnicodeLowerCase(ch);
      const char32_t upper = UnicodeUpperCase(ch);
      tables.lower += static_cast<char16_t>(lower < CODE_UNITS ? lower : ch);
      tables.upper += static_cast<char16_t>(upper < CODE_UNITS ? upper : ch);
    }
    for (char16_t ch = 0; ch < CLASSIFIED_CHARACTERS; ++ch) {
      if (!quorvel::IsLetter(ch)) continue;
      tables.classes[ch] = quorvel::ClassOf(ch);
      tables.lower[ch] = quorvel::ToLowerCase(ch);
      tables.upper[ch] = quorvel::ToUpperCase(ch);
    }
    return tables;
  }
};

Alphabet::Alphabet()
    : reading_(Reading::windows1252),
      classes_(detail::CHARACTER_CLASSES.data()),
      lower_(detail::TO_LOWER.data()),
      upper_(detail::TO_UPPER.data()),
      size_(CLASSIFIED_CHARACTERS) {}

Alphabet::Alphabet(const Tables& tables)
    : reading_(Reading::unicode),
      classes_(tables.classes.data()),
      lower_(tables.lower.data()),
      upper_(tables.upper.data()),
      size_(CODE_UNITS) {
  for (char32_t i = 0; i < CODE_UNITS; ++i) {
    const auto ch = static_cast<char16_t>(i);
    const char16_t lower = ToLowerCase(ch);
    if (lower != ch && ToUpperCase(lower) != ch) otherCapitals_[lower] += ch;
  }
}

const Alphabet& Alphabet::Windows1252() {
  static const Alphabet alphabet;
  return alphabet;
}

const Alphabet& Alphabet::Unicode() {
  static const Tables tables = Tables::OfUnicode();
  static const Alphabet alphabet(tables);
  return alphabet;
}

const Alphabet& Alphabet::Of(Reading reading) {
  return reading == Reading::unicode ? Unicode() : Windows1252();
}

std::uint8_t Alphabet::ClassOfPairAt(std::u16string_view text, std::size_t place) {
  if (IsLowSurrogate(text[place])) {
    if (place == 0) return 0;
    --place;
  }
  const char32_t ch = NextCodePoint(text, place);
  return ch < CODE_UNITS ? std::uint8_t{0} : UnicodeClassOf(ch);
}

bool Alphabet::ContainsNoLetter(std::u16string_view text) const {
  for (std::size_t i = 0; i < text.size(); ++i) {
    if ((ClassAt(text, i) & CLASS_LETTER) != 0) return false;
  }
  return true;
}

std::size_t Alphabet::EndOfRun(std::u16string_view text, std::size_t place) const {
  while (place < text.size() && IsWordCharacterAt(text, place)) ++place;
  return place;
}

std::u16string Alphabet::ToLowerCase(std::u16string_view text) const {
  std::u16string lower(text);
  for (char16_t& ch : lower) ch = ToLowerCase(ch);
  if (std::none_of(lower.begin(), lower.end(), IsHighSurrogate)) return lower;
  lower.clear();
  for (std::size_t i = 0; i < text.size();) {
    AppendCodePoint(lower, UnicodeLowerCase(NextCodePoint(text, i)));
  }
  return lower;
}

std::u16string_view Alphabet::OtherCapitalsOf(char16_t lower) const {
  const auto found = otherCapitals_.find(lower);
  return found == otherCapitals_.end() ? std::u16string_view() : found->second;
}

std::u16string Alphabet::SortKey(std::u16string_view word) const {
  return ToLowerCase(reading_ == Reading::unicode ? Folded(word) : FoldForKey(word));
}

std::u16string Alphabet::WithoutAccents(std::u16string_view word) const {
  const std::u16string plain = StripAccents(word);
  if (reading_ == Reading::windows1252) return ToLowerCase(plain);
  return ToLowerCase(Folded(plain));
}

void Alphabet::AppendEncoded(std::string& bytes, std::u16string_view text) const {
  if (reading_ == Reading::unicode) {
    AppendUtf8(bytes, text);
  } else {
    AppendAnsi(bytes, text);
  }
}

std::string Alphabet::Encode(std::u16string_view text) const {
  return reading_ == Reading::unicode ? EncodeUtf8(text) : EncodeAnsi(text);
}

std::u16string Alphabet::Decode(std::string_view bytes) const {
  return reading_ == Reading::unicode ? DecodeUtf8(bytes) : DecodeAnsi(bytes);
}

// Each byte that begins a character counts as one code unit. The first byte of a four-byte sequence
// counts as two.
std::size_t Alphabet::CodeUnitsIn(std::string_view bytes) const {
  if (reading_ == Reading::windows1252) return bytes.size();
  constexpr std::size_t BLOCK = 64;  // a constant trip count, for vectorization
  std::size_t units = 0;
  const auto add = [&units](const char* block, std::size_t length) {
    std::uint8_t ofBlock = 0;
    for (std::size_t i = 0; i < length; ++i) {
      const auto byte = static_cast<std::uint8_t>(block[i]);
      const auto begins = static_cast<std::uint8_t>((byte & 0xC0U) != 0x80);
      const auto isOfFour = static_cast<std::uint8_t>(byte >= 0xF0);
      ofBlock = static_cast<std::uint8_t>(ofBlock + begins + isOfFour);
    }
    units += ofBlock;
  };
  for (; bytes.size() >= BLOCK; bytes.remove_prefix(BLOCK)) add(bytes.data(), BLOCK);
  add(bytes.data(), bytes.size());
  return units;
}

std::u16string Alphabet::Typed(std::string_view text) const {
  return reading_ == Reading::unicode ? DecodeUtf8(Normalized(EncodeUtf8(DecodeUtf8(text))))
                                      : DecodeUtf8(text);
}

}  // namespace quorvel
