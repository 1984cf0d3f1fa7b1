#include "run/stop_word_choice.h"

#include <utility>

#include "files/file_system.h"
#include "input/text_sample.h"
#include "lists/word_file.h"
#include "run/word_lists.h"
#include "unicode/unicode_sample.h"

namespace quorvel {
namespace {

bool WantsEnglishList(Conversation& ui) {
  return ui.Ask({"No stop words file is set.\r\nDo you wish to use the English list?", "Stop words",
                 Icon::none, Buttons::yesNo, Answer::yes}) == Answer::yes;
}

}  // namespace

std::string StopWordsPath(const Language& language) {
  return DataFilePath(std::string(language.stopWordsFile));
}

// A language without a stop-words file has no stop words.
std::shared_ptr<const LanguagesByWord> ReadLanguages() {
  StopWordsByLanguage stopWords;
  SilentProgress nobody;
  for (std::size_t i = 0; i < LANGUAGES.size(); ++i) {
    const Result<InputBytes> file = ReadInput(StopWordsPath(LANGUAGES.at(i)), nobody);
    if (!file && file.Error().kind == FaultKind::missing) continue;
    if (!file) return nullptr;
    stopWords.at(i) = *WordsOfFileBytes(file->View(), Alphabet::Windows1252(), nobody);
  }
  return std::make_shared<const LanguagesByWord>(LanguagesOf(stopWords));
}

Language RecognizeInputLanguage(const InputBytes& input, Reading reading,
                                const LanguagesByWord& languages) {
  std::string sample = reading == Reading::unicode ? UnicodeSample(input, RECOGNITION_LENGTH)
                                                   : TextSample(input, RECOGNITION_LENGTH);
  return LANGUAGES.at(RecognizeLanguage(std::move(sample), languages));
}

void ChooseStopWords(const std::optional<Language>& language, ConcordanceSettings& settings,
                     StopWordList& list, Conversation& ui) {
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
