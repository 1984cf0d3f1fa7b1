#include "lines/context_words.h"

#include <algorithm>
#include <limits>
#include <type_traits>

#include "util/characters.h"
#include "util/utf8.h"

namespace quorvel {
namespace {

// Removes the first word of a context and returns it. Returns an empty word at the end.
template <typename View>
View TakeFirstWord(View& context) {
  context.remove_prefix(std::min(context.find_first_not_of(' '), context.size()));
  const View word = context.substr(0, context.find(' '));
  context.remove_prefix(word.size());
  return word;
}

template <typename View>
View TakeLastWord(View& context) {
  context = context.substr(0, context.find_last_not_of(' ') + 1);
  const View word = context.substr(context.rfind(' ') + 1);
  context.remove_suffix(word.size());
  return word;
}

}  // namespace

template <typename Char>
ContextWords<Char>::ContextWords(const Quotation<Char>& quotation, const Alphabet& alphabet)
    : quotation_(quotation),
      alphabet_(alphabet),
      characters_(std::size_t{std::numeric_limits<std::make_unsigned_t<Char>>::max()} + 1) {}

template <typename Char>
auto ContextWords<Char>::Made(std::u16string_view character) const -> Character {
  const std::uint8_t bits = alphabet_.ClassAt(character, 0);
  const bool isApostrophe = character == u"'" || character == u"\u2019";
  if ((bits & WORD_CLASSES) == 0) return {{}, false, isApostrophe};
  return {alphabet_.SortKey(character), (bits & (CLASS_LETTER | CLASS_DIGIT)) != 0, isApostrophe};
}

template <typename Char>
auto ContextWords<Char>::CharacterOf(Char ch) -> const Character& {
  auto& known = characters_[static_cast<std::make_unsigned_t<Char>>(ch)];
  if (known == nullptr) {
    known = std::make_unique<const Character>(Made(quotation_.InCodeUnits(View(&ch, 1))));
  }
  return *known;
}

template <typename Char>
bool ContextWords<Char>::AppendWord(std::u16string& to, View word) {
  const std::size_t before = to.size();
  bool isWord = false;
  const auto append = [&](const Character& character) {
    to += character.folded;
    isWord = isWord || character.makesWord;
  };
  for (std::size_t i = 0; i < word.size(); ++i) {
    if constexpr (std::is_same_v<Char, char16_t>) {
      if (IsHighSurrogate(word[i])) {
        append(Made(word.substr(i++, 2)));
        continue;
      }
    }
    append(CharacterOf(word[i]));
  }
  if (!isWord) to.resize(before);
  return isWord;
}

template <typename Char>
template <typename TakeWord>
void ContextWords<Char>::AppendWords(std::u16string& to, View side, int fromWord,
                                     const TakeWord& takeWord) {
  for (View word = takeWord(side); !word.empty(); word = takeWord(side)) {
    const std::size_t before = to.size();
    if (!AppendWord(to, word)) continue;
    if (--fromWord > 0) {
      to.resize(before);
    } else {
      to += u' ';
    }
  }
}

template <typename Char>
void ContextWords<Char>::AppendRight(std::u16string& to, View right, int fromWord) {
  if (!right.empty() && CharacterOf(right.front()).isApostrophe) (void)TakeFirstWord(right);
  AppendWords(to, right, fromWord, TakeFirstWord<View>);
}

template <typename Char>
void ContextWords<Char>::AppendLeft(std::u16string& to, View left, int fromWord) {
  if (!left.empty() && CharacterOf(left.back()).isApostrophe) (void)TakeLastWord(left);
  AppendWords(to, left, fromWord, TakeLastWord<View>);
}

template class ContextWords<char>;
template class ContextWords<char16_t>;

}  // namespace quorvel
