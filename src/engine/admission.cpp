#include "engine/admission.h"

#include <algorithm>

namespace quorvel {
namespace {

// Without a stop-words file and extra stop words there are no stop words, whatever `lists` still
// holds from an earlier run.
bool IsStopWord(std::u16string_view word, const ConcordanceSettings& settings,
                const WordLists& lists, const Alphabet& alphabet) {
  if (settings.stopWordsFile.empty() && lists.extraStopWords.empty()) return false;
  return BinarySearch(lists.extraStopWords, alphabet.ToLowerCase(word)) ||
         BinarySearch(lists.stopWords.words, word) ||
         BinarySearch(lists.stopWords.numberWords, word);
}

bool IsListed(const WordEntry& entry, const ConcordanceSettings& settings, const WordLists& lists,
              const Alphabet& alphabet) {
  const bool hyphenated = entry.word.find(u'-') != std::u16string::npos;
  if (hyphenated && !settings.allowWordsWithHyphens) return false;
  const auto isDigit = [&alphabet](char16_t ch) { return alphabet.IsDigit(ch); };
  if (!settings.allowWordsWithNumerals && std::ranges::any_of(entry.word, isDigit)) return false;
  if (settings.ignoreInfrequentWords && entry.Count() < settings.thresholdFrequency) return false;
  return !IsStopWord(entry.word, settings, lists, alphabet);
}

}  // namespace

IncludeFlags ApplyAdmissionFilters(const WordTable& table, const ConcordanceSettings& settings,
                                   const WordLists& lists, const Alphabet& alphabet) {
  IncludeFlags include;
  for (const WordEntry& entry : table.entries) {
    include.push_back(settings.mode == Mode::create
                          ? IsListed(entry, settings, lists, alphabet)
                          : IsSearchWord(entry.word, lists.keywords, alphabet));
  }
  return include;
}

}  // namespace quorvel
