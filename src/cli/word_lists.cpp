#include "cli/word_lists.h"

#include <algorithm>
#include <optional>

#include "run/stop_word_choice.h"
#include "run/word_lists.h"

namespace quorvel {
namespace {

bool LoadKeywords(Session& session, Conversation& ui) {
  const std::string& path = session.Settings().keywordsFile;
  KeywordLists& keywords = session.Lists().keywords;
  if (path.empty()) return true;
  bool read = false;
  session.Enter(path, [&] { read = ReadKeywordsFile(path, session.AlphabetNow(), keywords, ui); });
  if (!read) return false;
  ui.Tell(KeywordsLoadedText(keywords, path), "Keywords to search for", Icon::none);
  return true;
}

const Language& LanguageByCode(const std::string& code) {
  const auto* const found = std::find_if(LANGUAGES.begin(), LANGUAGES.end(),
                                         [&code](const Language& one) { return one.code == code; });
  return found != LANGUAGES.end() ? *found : ALL_LANGUAGES;
}

bool LoadStopWords(Session& session, bool tell, Conversation& ui) {
  const std::string path = session.Settings().stopWordsFile;
  StopWordList& list = session.Lists().stopWords;
  if (path.empty()) return true;
  bool read = false;
  session.Enter(path, [&] {
    if (tell) {
      read = AttemptToReadStopWords(path, session.Settings(), list, ui);
    } else if (ReadStopWordsFile(path, session.AlphabetNow(), list, ui)) {
      ui.AppendOutput(StopWordsLoadedText(list, path) + "\r\n");
      read = true;
    }
  });
  return read;
}

}  // namespace

bool SettleStopWordsFile(const std::string& language, Session& session) {
  ConcordanceSettings& settings = session.Settings();
  if (!settings.stopWordsFile.empty() || language.empty() || language == "none") return true;
  std::optional<Language> chosen = LanguageByCode(language);
  if (RecognizesLanguage(language, settings)) chosen = session.RecognizeLanguage();
  settings.stopWordsFile = StopWordsPath(chosen.value_or(LANGUAGES.front()));
  return chosen.has_value();
}

bool RecognizesLanguage(const std::string& language, const ConcordanceSettings& settings) {
  return settings.stopWordsFile.empty() && language == "auto";
}

bool LoadWordLists(Session& session, bool tellStopWords, Conversation& ui) {
  if (session.Settings().mode == Mode::search) return LoadKeywords(session, ui);
  return LoadStopWords(session, tellStopWords, ui);
}

}  // namespace quorvel
