// A listing: the words of a document in some order, each with its contexts.
//
// The value contains no text, only the words and the options. Its bytes are composed piece by piece
// when they are needed, and never stored as a whole.
#pragma once

#include <memory>
#include <vector>

#include "engine/words.h"
#include "lines/lines.h"
#include "lists/keywords.h"
#include "settings/settings.h"
#include "util/piece_sink.h"
#include "util/progress.h"

namespace quorvel {

// The options that affect only the listing.
struct ListingOptions {
  WordOrder wordOrder = WordOrder::alphabetical;
  int contextSize = 5;  // words on each side; 0 for a bare word list
  bool showFrequencies = true;
  bool showLineBreaks = false;
};

// The options of a listing according to the settings.
[[nodiscard]] ListingOptions ListingOptionsOf(const ConcordanceSettings& settings);

struct Listing {
  std::shared_ptr<const ListedWords> words;
  std::shared_ptr<const KeywordLists> keywords;  // of a search; null for a concordance
  ListingOptions options;

  [[nodiscard]] const Document& Source() const { return *words->words.document; }
  [[nodiscard]] Mode ModeOf() const { return keywords == nullptr ? Mode::create : Mode::search; }
};

// The source of the lines behind a listing.
[[nodiscard]] LineSource LinesOfListing(const Listing& listing);

// The listed entries in the order of the listing.
[[nodiscard]] std::vector<EntryIndex> EntriesInOrder(const Listing& listing);

// Composes the listing and passes it to `take` in order, encoded as the document's alphabet
// defines. For a bare word list each piece is one line. Ends before the first word that cannot be
// listed, and after the current piece on a stop request. A long listing is composed by several
// threads; `take` is always called on the calling thread.
void Compose(const Listing& listing, const PieceSink& take, Progress& progress);

// The words that occur too often to be listed, in the order of the listing.
[[nodiscard]] std::vector<const WordEntry*> TooFrequentWords(const Listing& listing);

}  // namespace quorvel
