#include "cli/word_lists.h"

#include <algorithm>
#include <optional>

#include "run/stop_word_choice.h"

namespace quorvel {
namespace {

bool LoadKeywords(RunState& state, UserInterface& ui) {
  const std::string& path = state.settings.keywordsFile;
  if (path.empty()) return true;
  if (!ReadKeywordsFile(path, state.lists.keywords, ui)) return false;
  ui.Tell(KeywordsLoadedText(state.lists.keywords, path), "Keywords to search for", Icon::none);
  return true;
}

const Language& LanguageByCode(const std::string& code) {
  const auto* const found = std::find_if(LANGUAGES.begin(), LANGUAGES.end(),
                                         [&code](const Language& one) { return one.code == code; });
  return found != LANGUAGES.end() ? *found : ALL_LANGUAGES;
}

bool LoadStopWords(RunState& state, bool tell, UserInterface& ui) {
  const std::string path = state.settings.stopWordsFile;
  StopWordList& list = state.lists.stopWords;
  if (path.empty()) return true;
  if (tell) return AttemptToReadStopWords(path, state.settings, list, ui);
  if (!ReadStopWordsFile(path, list, ui)) return false;
  ui.AppendOutput(StopWordsLoadedText(list, path) + "\r\n");
  return true;
}

}  // namespace

bool SettleStopWordsFile(const std::string& language, ConcordanceSettings& settings,
                         UserInterface& ui) {
  if (!settings.stopWordsFile.empty() || language.empty() || language == "none") return true;
  std::optional<Language> chosen = LanguageByCode(language);
  if (language == "auto") chosen = RecognizeInputLanguage(settings.inputFile, ui);
  settings.stopWordsFile = StopWordsPath(chosen.value_or(LANGUAGES.front()));
  return chosen.has_value();
}

bool LoadWordLists(RunState& state, bool tellStopWords, UserInterface& ui) {
  if (state.settings.mode == Mode::search) return LoadKeywords(state, ui);
  return LoadStopWords(state, tellStopWords, ui);
}

}  // namespace quorvel
