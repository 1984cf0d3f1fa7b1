#include "run/stop_word_choice.h"

#include <cerrno>
#include <optional>
#include <utility>
#include <vector>

#include "engine/language_recognition.h"
#include "files/file_system.h"
#include "input/text_sample.h"
#include "lists/stop_words.h"
#include "lists/word_file.h"
#include "util/silent_interface.h"

namespace quorvel {
namespace {

// A language without its file has no stop words; nothing when one cannot be read.
std::optional<StopWordsByLanguage> StopWordsOfAllLanguages() {
  StopWordsByLanguage stopWords;
  SilentInterface ui;
  for (std::size_t i = 0; i < LANGUAGES.size(); ++i) {
    const FileRead file = ReadFileBytes(StopWordsPath(LANGUAGES.at(i)));
    if (!file.error.empty() && file.errorNumber != ENOENT) return std::nullopt;
    std::optional<std::vector<std::u16string>> words = WordsOfFileBytes(file.bytes, ui);
    if (words) stopWords.at(i) = std::move(*words);
  }
  return stopWords;
}

bool WantsEnglishList(UserInterface& ui) {
  return ui.Ask({"No stop words file is set.\r\nDo you wish to use the English list?", "Stop words",
                 Icon::none, Buttons::yesNo, Answer::yes}) == Answer::yes;
}

}  // namespace

std::string StopWordsPath(const Language& language) {
  return DataFilePath(std::string(language.stopWordsFile));
}

std::optional<Language> RecognizeInputLanguage(const std::string& inputFile, UserInterface& ui) {
  const std::optional<StopWordsByLanguage> stopWords = StopWordsOfAllLanguages();
  const std::optional<std::string> sample = TextSample(inputFile, RECOGNITION_LENGTH, ui);
  if (!stopWords || !sample) return std::nullopt;
  return LANGUAGES.at(RecognizeLanguage(*sample, *stopWords));
}

void ChooseStopWords(RunState& state, UserInterface& ui) {
  StopWordList& list = state.lists.stopWords;
  ConcordanceSettings& settings = state.settings;
  const std::optional<Language> language = RecognizeInputLanguage(settings.inputFile, ui);
  std::string path = language ? StopWordsPath(*language) : "";
  if (FileExists(path)) {
    const bool allInUse = settings.stopWordsFile.ends_with(ALL_LANGUAGES.stopWordsFile);
    if (list.loaded && (allInUse || settings.stopWordsFile == path)) return;
  } else {
    if (!WantsEnglishList(ui)) return;
    path =
        settings.stopWordsFile.empty() ? StopWordsPath(LANGUAGES.front()) : settings.stopWordsFile;
  }
  AttemptToReadStopWords(path, settings, list, ui);
}

}  // namespace quorvel
