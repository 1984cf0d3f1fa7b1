// Composes the entries of a listing, in the characters of the quoted text: a header for each word,
// followed by its contexts.
//
// With a context size of 0 an entry is only the word, which makes a plain word list. In a search
// the keywords decide which contexts are shown.
#pragma once

#include <cstdint>
#include <string>

#include "engine/word_table.h"
#include "lines/context_window.h"
#include "lists/keywords.h"
#include "output/context_merger.h"
#include "output/keyword_marks.h"

namespace quorvel {

// The maximum number of occurrences of a word that can be listed.
inline constexpr std::int32_t MOST_OCCURRENCES = 32767;

struct EntryOptions {
  ContextOptions context;
  bool showFrequencies = true;
  const KeywordLists* keywords = nullptr;  // of a search; without keywords every context is shown
};

// The common data of all entries of a listing: the text and the options. Several composers may use
// it in parallel.
template <typename Char>
class EntrySource {
 public:
  // The document and the keywords must outlive the object. `occurrences` is the number of those to
  // be listed; only the time depends on it.
  EntrySource(const Quotation<Char>& quotation, const Alphabet& alphabet,
              const EntryOptions& options, std::size_t occurrences);

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

  // `source` must outlive the object.
  explicit EntryComposer(const EntrySource<Char>& source);

  // Appends the entry of one word to `outputText`. The word must not occur more than
  // MOST_OCCURRENCES times.
  void DisplayNextWord(const WordEntry& entry, String& outputText);

 private:
  [[nodiscard]] String WordLine(const WordEntry& entry) const;
  void GatherContexts(const WordEntry& entry);
  void EmitContexts(const KeywordMarker<Char>& marker, const ExtraKeyword* keyword,
                    String& outputText);

  const EntrySource<Char>& source_;
  ContextMerger<Char> merger_;
  String copies_;  // contexts of the current word that had to be copied
};

extern template class EntrySource<char>;
extern template class EntrySource<char16_t>;
extern template class EntryComposer<char>;
extern template class EntryComposer<char16_t>;

}  // namespace quorvel
