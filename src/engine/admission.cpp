#include "engine/admission.h"

#include <algorithm>

#include "util/characters.h"

namespace quorvel {
namespace {

bool IsListed(const WordEntry& entry, const ConcordanceSettings& settings, const WordLists& lists) {
  const bool hyphenated = entry.word.find(u'-') != std::u16string::npos;
  if (hyphenated && !settings.allowWordsWithHyphens) return false;
  if (!settings.allowWordsWithNumerals && std::ranges::any_of(entry.word, IsDigit)) return false;
  if (settings.ignoreInfrequentWords && entry.Count() < settings.thresholdFrequency) return false;
  return !IsStopWord(entry.word, settings, lists);
}

}  // namespace

bool IsStopWord(std::u16string_view word, const ConcordanceSettings& settings,
                const WordLists& lists) {
  if (settings.stopWordsFile.empty() && lists.extraStopWords.empty()) return false;
  return BinarySearch(lists.extraStopWords, ToLowerCase(word)) ||
         BinarySearch(lists.stopWords.words, word) ||
         BinarySearch(lists.stopWords.numberWords, word);
}

IncludeFlags ApplyAdmissionFilters(const WordTable& table, const ConcordanceSettings& settings,
                                   const WordLists& lists) {
  IncludeFlags include;
  for (const WordEntry& entry : table.entries) {
    include.push_back(settings.mode == Mode::create ? IsListed(entry, settings, lists)
                                                    : IsSearchWord(entry.word, lists.keywords));
  }
  return include;
}

}  // namespace quorvel
