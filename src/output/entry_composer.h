// Composes the entries of a listing: a header for each word, and its contexts, in the characters of
// the text that is quoted.
//
// With a context size of 0 an entry is the bare word, so that the same machinery
// makes a plain word list. In a search the keywords decide which contexts are shown.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "engine/word_table.h"
#include "lines/context_window.h"
#include "lists/keywords.h"
#include "output/context_merger.h"
#include "output/keyword_marks.h"

namespace quorvel {

// A word that occurs more often cannot be listed.
inline constexpr std::int32_t MOST_OCCURRENCES = 32767;

struct EntryOptions {
  ContextOptions context;
  bool showFrequencies = true;
  const KeywordLists* keywords = nullptr;  // of a search; without them every context is shown
};

// What all entries of a listing have in common: the text and the options.
// Any number of composers may use it at once.
template <typename Char>
class EntrySource {
 public:
  // The document and the keywords must outlive the source.
  EntrySource(const Quotation<Char>& quotation, const Alphabet& alphabet,
              const EntryOptions& options);

 private:
  template <typename>
  friend class EntryComposer;

  Quotation<Char> quotation_;
  const Alphabet& alphabet_;
  EntryOptions options_;
  bool pluralMarksInText_;
  bool repeatMarkersInText_;
  ContextCutter<Char> cutter_;
  HashSeed seed_ = RandomHashSeed();
};

template <typename Char>
class EntryComposer {
 public:
  using String = std::basic_string<Char>;

  // The source must outlive the composer.
  explicit EntryComposer(const EntrySource<Char>& source);

  // Appends the entry of one word to `outputText`. The word must not occur more
  // often than MOST_OCCURRENCES.
  void DisplayNextWord(const WordEntry& entry, String& outputText);

  // The line of a bare word: the word and, if frequencies are shown, its count.
  [[nodiscard]] String WordLine(const WordEntry& entry) const;

 private:
  void GatherContexts(const WordEntry& entry);
  void EmitContexts(const KeywordMarker<Char>& marker, const ExtraKeyword* keyword,
                    String& outputText);

  const EntrySource<Char>& source_;
  ContextMerger<Char> merger_;
  String copies_;  // contexts that had to be copied, for the word at hand
};

extern template class EntrySource<char>;
extern template class EntrySource<char16_t>;
extern template class EntryComposer<char>;
extern template class EntryComposer<char16_t>;

}  // namespace quorvel
