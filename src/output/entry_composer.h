// Composes the entries of a listing: a header for each word, and its contexts, as Windows-1252
// bytes.
//
// With a context size of 0 an entry is the bare word, so that the same machinery
// makes a plain word list. In a search the keywords decide which contexts are shown.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "engine/word_table.h"
#include "lists/keywords.h"
#include "output/context_merger.h"
#include "output/context_window.h"
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
class EntrySource {
 public:
  // `text` is in Windows-1252, its double hyphens blanked. It and the keywords must outlive the
  // source.
  EntrySource(std::string_view text, const EntryOptions& options);

 private:
  friend class EntryComposer;

  EntryOptions options_;
  bool pluralMarksInText_;
  bool repeatMarkersInText_;
  ContextCutter cutter_;
  HashSeed seed_ = RandomHashSeed();
};

class EntryComposer {
 public:
  // The source must outlive the composer.
  explicit EntryComposer(const EntrySource& source);

  // Appends the entry of one word to `outputText`. The word must not occur more
  // often than MOST_OCCURRENCES.
  void DisplayNextWord(const WordEntry& entry, std::string& outputText);

  // The line of a bare word: the word and, if frequencies are shown, its count.
  [[nodiscard]] std::string WordLine(const WordEntry& entry) const;

 private:
  void GatherContexts(const WordEntry& entry);
  void EmitContexts(const KeywordMarker& marker, const ExtraKeyword* keyword,
                    std::string& outputText);

  const EntrySource& source_;
  ContextMerger merger_;
  std::string copies_;  // contexts that had to be copied, for the word at hand
};

}  // namespace quorvel
