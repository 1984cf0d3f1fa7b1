#include "cli/word_lists.h"

#include <algorithm>

#include "run/stop_word_choice.h"

namespace quorvel {
namespace {

bool LoadKeywords(RunState& state, UserInterface& ui) {
  const std::string& path = state.settings.keywordsFile;
  if (path.empty() || state.settings.mode == Mode::create) return true;
  if (!ReadKeywordsFile(path, state.lists.keywords, ui)) return false;
  ui.Ask({KeywordsLoadedText(state.lists.keywords, path), "Keywords to search for", Icon::none,
          Buttons::ok, Answer::ok});
  return true;
}

const Language& LanguageByCode(const std::string& code) {
  const auto* const found = std::find_if(LANGUAGES.begin(), LANGUAGES.end(),
                                         [&code](const Language& one) { return one.code == code; });
  return found != LANGUAGES.end() ? *found : ALL_LANGUAGES;
}

// The list of the input's own language is no news: its name is progress.
bool LoadRecognizedStopWords(RunState& state, UserInterface& ui) {
  const std::string path = StopWordsPath(RecognizeInputLanguage(state.settings.inputFile));
  if (!ReadStopWordsFile(path, state.lists.stopWords, ui)) return false;
  ui.AppendOutput(StopWordsLoadedText(state.lists.stopWords, path) + "\r\n");
  state.settings.stopWordsFile = path;
  return true;
}

bool LoadStopWords(const std::string& language, RunState& state, UserInterface& ui) {
  ConcordanceSettings& settings = state.settings;
  std::string path = settings.stopWordsFile;
  if (path.empty()) {
    if (language == "none" || settings.mode == Mode::search) return true;
    if (language == "auto") return LoadRecognizedStopWords(state, ui);
    path = StopWordsPath(LanguageByCode(language));
  }
  return AttemptToReadStopWords(path, settings, state.lists.stopWords, ui);
}

}  // namespace

bool LoadWordLists(const std::string& language, RunState& state, TerminalInterface& ui) {
  return LoadKeywords(state, ui) && LoadStopWords(language, state, ui);
}

}  // namespace quorvel
