#include "lists/stop_words.h"

#include <algorithm>

#include "lists/word_file.h"
#include "util/ansi.h"
#include "util/characters.h"
#include "util/number_words.h"

namespace quorvel {
namespace {

bool MayStandInWord(char16_t ch, const ConcordanceSettings& settings) {
  if (ch == u'-') return settings.allowWordsWithHyphens;
  if (IsDigit(ch)) return settings.allowWordsWithNumerals;
  return ch == u' ' || IsLetter(ch);
}

}  // namespace

void EraseStopWords(StopWordList& list) {
  list.words.clear();
  list.loaded = false;
}

void ConcealNumWords(StopWordList& list, bool conceal) {
  list.numberWords = conceal ? CardinalWords() : SortedWords();
}

std::string TidyExtraStopWords(std::string_view text) {
  std::u16string folded = ToLowerCase(DecodeUtf8(text));
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
  const std::u16string text = DecodeUtf8(settings.extraStopWords);
  const auto fault = std::find_if(
      text.begin(), text.end(), [&settings](char16_t ch) { return !MayStandInWord(ch, settings); });
  if (fault == text.end()) return std::nullopt;
  const bool optional = *fault == u'-' || IsDigit(*fault);
  return Fault{optional ? FaultKind::notAllowedForNow : FaultKind::notAllowedInStopWord,
               {},
               CharacterAt(text, static_cast<std::size_t>(fault - text.begin()))};
}

}  // namespace quorvel
