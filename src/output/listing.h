// A listing: the words of a document in some order, each with its contexts.
//
// A value that holds no text: the words that it lists and the options that it was asked for with.
// Its bytes are composed when they are wanted, piece by piece, and nowhere held whole.
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

// What only the listing depends on.
struct ListingOptions {
  WordOrder wordOrder = WordOrder::alphabetical;
  int contextSize = 5;  // words on each side; 0 for a bare word list
  bool showFrequencies = true;
  bool showLineBreaks = false;
};

[[nodiscard]] ListingOptions ListingOptionsOf(const ConcordanceSettings& settings);

struct Listing {
  std::shared_ptr<const ListedWords> words;
  std::shared_ptr<const KeywordLists> keywords;  // of a search; null in a concordance
  ListingOptions options;

  [[nodiscard]] const Document& Source() const { return *words->words.document; }
  [[nodiscard]] Mode ModeOf() const { return keywords == nullptr ? Mode::create : Mode::search; }
};

// What the lines behind a listing are read from.
[[nodiscard]] LineSource LinesOfListing(const Listing& listing);

// The entries that are listed, 0-based in the word table, in the order of the listing.
[[nodiscard]] std::vector<std::int32_t> EntriesInOrder(const Listing& listing);

// Composes the listing and hands it on, front to back, in the bytes of its document's alphabet; of
// a bare word list each piece is a line. Ends before the first word that cannot be listed, or after
// a stop request with the piece at hand. Several threads compose where it is long; `take` is called
// on this one.
void Compose(const Listing& listing, const PieceSink& take, Progress& progress);

// The words that occur too often to be listed, in the order of the listing.
[[nodiscard]] std::vector<const WordEntry*> TooFrequentWords(const Listing& listing);

}  // namespace quorvel
