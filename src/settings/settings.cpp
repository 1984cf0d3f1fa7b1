#include "settings/settings.h"

#include <utility>

namespace quorvel {
namespace {

void CopyLastingChoices(const ConcordanceSettings& from, ConcordanceSettings& to) {
  to.createIndexFile = from.createIndexFile;
  to.saveStateOnQuit = from.saveStateOnQuit;
  to.warnOnOverwrite = from.warnOnOverwrite;
  to.reading = from.reading;
  to.notes = from.notes;
}

void CopyPanelFields(const ConcordanceSettings& from, ConcordanceSettings& to) {
  to.ignoreLists = from.ignoreLists;
  to.allowWordsWithHyphens = from.allowWordsWithHyphens;
  to.allowWordsWithNumerals = from.allowWordsWithNumerals;
  to.ignoreInfrequentWords = from.ignoreInfrequentWords;
  to.thresholdFrequency = from.thresholdFrequency;
  to.extraStopWords = from.extraStopWords;
}

}  // namespace

void InitializeVariables(ConcordanceSettings& settings, bool reinitialize) {
  ConcordanceSettings initial;
  CopyLastingChoices(settings, initial);
  if (!reinitialize) CopyPanelFields(settings, initial);
  settings = std::move(initial);
}

}  // namespace quorvel
