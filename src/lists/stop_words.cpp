#include "lists/stop_words.h"

#include <algorithm>
#include <iterator>

#include "util/ansi.h"
#include "util/characters.h"
#include "util/number_words.h"

namespace quorvel {
namespace {

// The words between the blanks of `text`.
std::vector<std::u16string> SplitAtBlanks(std::u16string_view text) {
  std::vector<std::u16string> words;
  while (!text.empty()) {
    const std::size_t length = std::min(text.find(u' '), text.size());
    if (length > 0) words.emplace_back(text.substr(0, length));
    text.remove_prefix(std::min(length + 1, text.size()));
  }
  return words;
}

bool IsDigit(char16_t ch) { return (ClassOf(ch) & CLASS_DIGIT) != 0; }

bool MayStandInWord(char16_t ch, const ConcordanceSettings& settings) {
  if (ch == u'-') return settings.allowWordsWithHyphens;
  if (IsDigit(ch)) return settings.allowWordsWithNumerals;
  return ch == u' ' || IsLetter(ch);
}

}  // namespace

void ConcealNumWords(StopWordList& list, bool conceal) {
  if (list.numberWordsConcealed == conceal) return;
  list.numberWordsConcealed = conceal;
  const SortedWords numberWords = CardinalWords();
  SortedWords changed;
  if (conceal) {
    std::merge(list.words.begin(), list.words.end(), numberWords.begin(), numberWords.end(),
               std::back_inserter(changed));
  } else {
    // A number word that the file holds as well was there once more: it stays.
    std::set_difference(list.words.begin(), list.words.end(), numberWords.begin(),
                        numberWords.end(), std::back_inserter(changed));
  }
  list.words.swap(changed);
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
  SortedWords words = SplitAtBlanks(DecodeUtf8(tidied));
  std::sort(words.begin(), words.end());
  return words;
}

bool CheckAllowedExtraChars(const ConcordanceSettings& settings, UserInterface& ui) {
  const std::u16string text = DecodeUtf8(settings.extraStopWords);
  const auto fault = std::find_if(
      text.begin(), text.end(), [&settings](char16_t ch) { return !MayStandInWord(ch, settings); });
  if (fault == text.end()) return true;
  const bool optional = *fault == u'-' || IsDigit(*fault);
  std::string message = "The character " + EncodeUtf8({fault, fault + 1}) +
                        " occurs in some stop word\r\nbut is not " +
                        (optional ? "currently set as " : "") + "a character allowed in a word.";
  if (*fault == u',') {
    message += "\r\n\r\nWords-to-ignore must be separated by a space, not by a comma.";
  }
  ui.Ask({message, "Character not allowed", Icon::exclamation, Buttons::ok, Answer::ok});
  return false;
}

}  // namespace quorvel
