#include "lists/stop_words.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "lists/word_file.h"
#include "util/ansi.h"
#include "util/characters.h"
#include "util/number_words.h"

namespace quorvel {
namespace {

constexpr WordFileTexts STOP_WORD_TEXTS = {
    .title = "Stop words",
    .missing = "Stop words file not found:",
    .progress = "Reading stop words",
    .stopped = "Reading stop words was stopped.",
    // "tile" stands so, here and for keywords.
    .failed = "when reading stop words from tile ",
};

std::string CountText(const StopWordList& list) {
  return CountInWords(list.words.size(), "One stop word", " stop words");
}

bool MayStandInWord(char16_t ch, const ConcordanceSettings& settings) {
  if (ch == u'-') return settings.allowWordsWithHyphens;
  if (IsDigit(ch)) return settings.allowWordsWithNumerals;
  return ch == u' ' || IsLetter(ch);
}

}  // namespace

bool ReadStopWordsFile(const std::string& path, StopWordList& list, UserInterface& ui) {
  std::optional<SortedWords> words = ReadWordFile(path, STOP_WORD_TEXTS, ui);
  list.loaded = words.has_value();
  if (!words) return false;
  std::sort(words->begin(), words->end());
  list.words = std::move(*words);
  return true;
}

bool AttemptToReadStopWords(const std::string& path, ConcordanceSettings& settings,
                            StopWordList& list, UserInterface& ui) {
  if (!ReadStopWordsFile(path, list, ui)) return false;
  ui.SetOutput("");
  ui.SetLabel(Label::numberOfWords, CountText(list));
  ui.Tell(StopWordsLoadedText(list, path), "Stop words loaded", Icon::none);
  settings.stopWordsFile = path;
  return true;
}

std::string StopWordsLoadedText(const StopWordList& list, const std::string& path) {
  return CountText(list) + " loaded from " + path;
}

void ListStopWords(const StopWordList& list, UserInterface& ui) {
  constexpr std::size_t MOST_SHOWN = 30;
  const std::size_t count = list.words.size();
  if (count < 2) return;
  std::string text = "There are " + std::to_string(count) + " stop words.\r\n\r\n";
  for (std::size_t i = 0; i < std::min(count, MOST_SHOWN); ++i) {
    text += EncodeUtf8(list.words[i]) + "\r\n";
  }
  if (count > MOST_SHOWN) text += "\r\nand more";
  ui.Tell(text, "Stop words", Icon::none);
}

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

bool CheckAllowedExtraChars(const ConcordanceSettings& settings, UserInterface& ui) {
  const std::u16string text = DecodeUtf8(settings.extraStopWords);
  const auto fault = std::find_if(
      text.begin(), text.end(), [&settings](char16_t ch) { return !MayStandInWord(ch, settings); });
  if (fault == text.end()) return true;
  const bool optional = *fault == u'-' || IsDigit(*fault);
  std::string message = "The character " +
                        CharacterAt(text, static_cast<std::size_t>(fault - text.begin())) +
                        " occurs in some stop word\r\nbut is not " +
                        (optional ? "currently set as " : "") + "a character allowed in a word.";
  if (*fault == u',') {
    message += "\r\n\r\nWords-to-ignore must be separated by a space, not by a comma.";
  }
  ui.Tell(message, "Character not allowed");
  return false;
}

}  // namespace quorvel
