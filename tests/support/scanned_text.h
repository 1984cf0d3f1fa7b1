// Makes listings of a text without a file, like a run.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "engine/admission.h"
#include "input/double_hyphens.h"
#include "output/listing.h"
#include "support/latin.h"
#include "util/ansi.h"
#include "util/progress.h"

namespace quorvel {

// A document with this text.
inline std::shared_ptr<const Document> DocumentOf(std::u16string_view text) {
  Document document;
  document.narrowText = EncodeAnsi(text);
  BlankDoubleHyphens(document.narrowText);
  document.documentText = DecodeAnsi(document.narrowText);
  return std::make_shared<const Document>(std::move(document));
}

// These positions and these entries of a table, from numbers.
inline std::vector<Position> Positions(const std::vector<std::int32_t>& numbers) {
  std::vector<Position> positions;
  positions.reserve(numbers.size());
  for (const std::int32_t number : numbers) positions.push_back(Position{number});
  return positions;
}
inline std::vector<EntryIndex> Entries(const std::vector<std::int32_t>& numbers) {
  std::vector<EntryIndex> entries;
  entries.reserve(numbers.size());
  for (const std::int32_t number : numbers) entries.push_back(EntryIndex{number});
  return entries;
}

// All entries of a table.
inline std::vector<EntryIndex> EntriesOf(const WordTable& table) {
  std::vector<EntryIndex> entries;
  for (const WordEntry& entry : table.entries) entries.push_back(table.IndexOf(entry));
  return entries;
}

// A word table with these words in this order, each with its places.
inline WordTable MadeTable(
    const std::vector<std::pair<std::u16string, std::vector<std::int32_t>>>& words) {
  WordTable table;
  for (const auto& [word, positions] : words) {
    table.entries.push_back(NewWordEntry(word, latin));
    table.entries.back().positions = Positions(positions);
  }
  return table;
}

// The listing of these words with these settings, whose extra stop words are tidied, and, in a
// search, these keywords.
inline Listing ListingOf(const Words& words, const ConcordanceSettings& settings,
                         const KeywordLists& keywords = {}) {
  WordLists lists;
  lists.extraStopWords = ExtraStopWordsOf(settings.extraStopWords);
  lists.keywords = keywords;
  ListedWords listed;
  listed.words = words;
  listed.include = ApplyAdmissionFilters(*words.table, settings, lists, latin);
  listed.counts = CountIncludedWords(*words.table, listed.include);
  listed.frequencyChain = BuildFrequencyChain(*words.table, listed.include);
  Listing listing;
  listing.words = std::make_shared<const ListedWords>(std::move(listed));
  if (settings.mode == Mode::search) {
    listing.keywords = std::make_shared<const KeywordLists>(keywords);
  }
  listing.options = ListingOptionsOf(settings);
  return listing;
}

// Scans a text and returns its listing.
inline Listing ScanText(std::u16string_view text, const ConcordanceSettings& settings,
                        Progress& progress) {
  return ListingOf(ScanWords(DocumentOf(text), nullptr, progress), settings);
}

inline const WordTable& TableOf(const Listing& listing) { return *listing.words->words.table; }

// The composed text of a listing, in Windows-1252.
inline std::string Composed(const Listing& listing, Progress& progress) {
  std::string text;
  Compose(
      listing,
      [&text](std::string_view piece) {
        text += piece;
        return true;
      },
      progress);
  return text;
}

}  // namespace quorvel
