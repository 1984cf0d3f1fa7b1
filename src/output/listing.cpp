#include "output/listing.h"

#include <algorithm>
#include <chrono>
#include <optional>
#include <span>
#include <string>
#include <type_traits>
#include <utility>

#include "lines/quotation.h"
#include "output/entry_composer.h"
#include "output/listing_order.h"
#include "util/text_form.h"
#include "util/worker_pool.h"

namespace quorvel {
namespace {

EntryOptions EntryOptionsOf(const Listing& listing) {
  const ListingOptions& options = listing.options;
  return {{options.contextSize, options.showLineBreaks},
          options.showFrequencies,
          listing.keywords.get()};
}

using ListedSpan = std::span<const ListedWord>;

bool CanBeListed(const ListedWord& word) { return word.entry->Count() <= MOST_OCCURRENCES; }

// Divides the words into pieces that each take some tenths of a millisecond to compose.
std::vector<ListedSpan> PiecesOf(ListedSpan words) {
  constexpr std::int32_t OCCURRENCES = 2048;
  std::vector<ListedSpan> pieces;
  while (!words.empty()) {
    std::size_t taken = 0;
    for (std::int32_t found = 0; taken < words.size() && found < OCCURRENCES; ++taken) {
      found += words[taken].entry->Count();
    }
    pieces.push_back(words.first(taken));
    words = words.subspan(taken);
  }
  return pieces;
}

std::size_t OccurrencesOf(ListedSpan words) {
  std::size_t occurrences = 0;
  for (const ListedWord& word : words) occurrences += word.entry->positions.size();
  return occurrences;
}

// The line end before the first entry is not part of the listing.
std::string_view WithoutLineEnd(std::string_view text) {
  return text.starts_with(LINE_END) ? text.substr(LINE_END.size()) : text;
}

// Composes the entries of several words as the bytes of the listing.
template <typename Char>
class BytesOfEntries {
 public:
  BytesOfEntries(const EntrySource<Char>& source, const Quotation<Char>& quotation, Reading reading)
      : composer_(source), quotation_(quotation), reading_(reading) {}

  void Append(ListedSpan words, std::string& to) {
    if constexpr (std::is_same_v<Char, char>) {
      if (reading_ == Reading::windows1252) return Display(words, to);
    }
    text_.clear();
    Display(words, text_);
    quotation_.AppendUtf8(to, text_);
  }

 private:
  void Display(ListedSpan words, std::basic_string<Char>& to) {
    for (const ListedWord& word : words) composer_.DisplayNextWord(*word.entry, to);
  }

  EntryComposer<Char> composer_;
  Quotation<Char> quotation_;
  Reading reading_;
  std::basic_string<Char> text_;  // buffer, kept to avoid allocations
};

// Composes a listing. A stop request ends it early.
template <typename Char>
class ListingPass {
 public:
  ListingPass(const Listing& listing, ListedSpan words, const Quotation<Char>& quotation,
              const PieceSink& take, Progress& progress)
      : words_(words),
        quotation_(quotation),
        reading_(listing.Source().options.reading),
        take_(take),
        progress_(*listing.words, progress),
        isWordList_(listing.options.contextSize == 0),
        source_(quotation, listing.Source().AlphabetOf(), EntryOptionsOf(listing),
                OccurrencesOf(words)) {}

  void List() {
    constexpr std::size_t FEWEST_PIECES = 4;  // minimum for which threads are worthwhile
    const std::vector<ListedSpan> pieces = PiecesOf(words_);
    if (isWordList_ || pieces.size() < FEWEST_PIECES) return ListHere();
    ListByThreads(pieces);
  }

 private:
  void ListHere() {
    BytesOfEntries<Char> entries(source_, quotation_, reading_);
    std::string text;
    for (const ListedWord& word : words_) {
      text.clear();
      entries.Append({&word, 1}, text);
      const bool wantsMore = HandOn(text);
      progress_.Show(word);
      if (!wantsMore || !progress_.MayGoOn()) return;
    }
  }

  void ListByThreads(const std::vector<ListedSpan>& pieces) {
    constexpr std::chrono::milliseconds PATIENCE(5);
    WorkerPool pool(pieces.size(), Processors(), [this, &pieces] {
      const auto entries = std::make_shared<BytesOfEntries<Char>>(source_, quotation_, reading_);
      return [entries, &pieces](std::size_t piece, std::string& to) {
        entries->Append(pieces[piece], to);
      };
    });
    for (std::size_t done = 0; done < pieces.size();) {
      if (const std::optional<std::string_view> text = pool.Next(PATIENCE)) {
        if (!HandOn(*text)) return;
        progress_.Show(pieces[done++].back());
      }
      if (!progress_.MayGoOn()) return;
    }
  }

  bool HandOn(std::string_view text) {
    const bool isFirst = std::exchange(isFirst_, false);
    return take_(isFirst ? WithoutLineEnd(text) : text);
  }

  ListedSpan words_;
  Quotation<Char> quotation_;
  Reading reading_;
  const PieceSink& take_;
  ListingProgress progress_;
  bool isWordList_;
  EntrySource<Char> source_;
  bool isFirst_ = true;
};

}  // namespace

ListingOptions ListingOptionsOf(const ConcordanceSettings& settings) {
  return {settings.wordOrder, settings.contextSize, settings.showFrequencies,
          settings.showLineBreaks};
}

LineSource LinesOfListing(const Listing& listing) {
  return {listing.words->words,
          listing.keywords,
          {listing.options.contextSize, listing.options.showLineBreaks}};
}

std::vector<EntryIndex> EntriesInOrder(const Listing& listing) {
  std::vector<EntryIndex> entries;
  for (const ListedWord& word : WordsInOrder(*listing.words, listing.options.wordOrder)) {
    entries.push_back(listing.words->words.table->IndexOf(*word.entry));
  }
  return entries;
}

void Compose(const Listing& listing, const PieceSink& take, Progress& progress) {
  const std::vector<ListedWord> words = WordsInOrder(*listing.words, listing.options.wordOrder);
  const auto end = std::find_if_not(words.begin(), words.end(), CanBeListed);
  WithQuotation(listing.Source(), [&](const auto& quotation) {
    ListingPass(listing, {words.begin(), end}, quotation, take, progress).List();
  });
}

std::vector<const WordEntry*> TooFrequentWords(const Listing& listing) {
  std::vector<const WordEntry*> tooFrequent;
  for (const ListedWord& word : WordsInOrder(*listing.words, listing.options.wordOrder)) {
    if (!CanBeListed(word)) tooFrequent.push_back(word.entry);
  }
  return tooFrequent;
}

}  // namespace quorvel
