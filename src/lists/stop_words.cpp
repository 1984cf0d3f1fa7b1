#include "lists/stop_words.h"

#include <algorithm>
#include <cstdint>

#include "lists/word_file.h"
#include "util/number_words.h"
#include "util/utf8.h"

namespace quorvel {
namespace {

bool MayStandInWord(std::uint8_t classes, const ConcordanceSettings& settings) {
  if ((classes & CLASS_HYPHEN) != 0) return settings.allowWordsWithHyphens;
  if ((classes & CLASS_DIGIT) != 0) return settings.allowWordsWithNumerals;
  return (classes & CLASS_LETTER) != 0;
}

}  // namespace

void EraseStopWords(StopWordList& list) {
  list.words.clear();
  list.loaded = false;
}

void ConcealNumWords(StopWordList& list, bool conceal) {
  list.numberWords = conceal ? CardinalWords() : SortedWords();
}

std::string TidyExtraStopWords(std::string_view text, const Alphabet& alphabet) {
  std::u16string folded = alphabet.ToLowerCase(alphabet.Typed(text));
  std::replace(folded.begin(), folded.end(), u',', u' ');
  std::u16string tidied;
  for (const std::u16string& word : ExtraStopWordsOf(EncodeUtf8(folded))) {
    if (!tidied.empty()) tidied += u' ';
    tidied += word;
  }
  return EncodeUtf8(tidied);
}

SortedWords ExtraStopWordsOf(std::string_view tidied) {
  const std::u16string text = DecodeUtf8(tidied);
  SortedWords words;
  for (const std::u16string_view word : SplitAtBlanks(text)) words.emplace_back(word);
  std::sort(words.begin(), words.end());
  return words;
}

std::optional<Fault> FaultInExtraStopWords(const ConcordanceSettings& settings) {
  const Alphabet& alphabet = Alphabet::Of(settings.reading);
  const std::u16string text = DecodeUtf8(settings.extraStopWords);
  for (std::size_t i = 0; i < text.size(); ++i) {
    const std::uint8_t classes = alphabet.ClassAt(text, i);
    if (text[i] == u' ' || MayStandInWord(classes, settings)) continue;
    const bool optional = (classes & (CLASS_HYPHEN | CLASS_DIGIT)) != 0;
    return Fault{optional ? FaultKind::notAllowedForNow : FaultKind::notAllowedInStopWord,
                 {},
                 CharacterAt(text, i)};
  }
  return std::nullopt;
}

}  // namespace quorvel
