// Benchmarks of the single phases of a run. Bytes per second always refer to the input file, so
// that phases can be compared.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <string>

#include "engine/tokenizer.h"
#include "output/listing.h"
#include "run/listing_run.h"
#include "samples.h"

namespace quorvel {
namespace {

void CountBytes(benchmark::State& state, const Sample& sample) {
  state.SetBytesProcessed(state.iterations() * sample.fileLength);
}

// From the file to the text that is scanned.
void Read(benchmark::State& state, Source source) {
  const Sample& sample = SampleOf(source);
  for (auto _ : state) benchmark::DoNotOptimize(DocumentAt(sample.path));
  CountBytes(state, sample);
}

void Scan(benchmark::State& state, Source source) {
  const Sample& sample = SampleOf(source);
  SilentProgress nobody;
  for (auto _ : state) {
    WordTable table;
    const std::u16string& text = sample.document->documentText;
    GetWords(text, {0, text.size()}, Alphabet::Windows1252(), table, nobody);
    benchmark::DoNotOptimize(table.entries.data());
  }
  CountBytes(state, sample);
}

void Sort(benchmark::State& state, Source source) {
  const Sample& sample = SampleOf(source);
  for (auto _ : state) {
    state.PauseTiming();
    WordTable table = sample.scannedTable;
    state.ResumeTiming();
    SortWordTable(table);
    benchmark::DoNotOptimize(table.entries.data());
    state.PauseTiming();
    table = {};
    state.ResumeTiming();
  }
  CountBytes(state, sample);
}

void Chain(benchmark::State& state, Source source) {
  const Sample& sample = SampleOf(source);
  const ListedWords& words = *sample.listing.words;
  for (auto _ : state) {
    benchmark::DoNotOptimize(BuildFrequencyChain(*words.words.table, words.include));
  }
  CountBytes(state, sample);
}

void ComposeListing(benchmark::State& state, Source source, int contextSize, bool showLineBreaks) {
  const Sample& sample = SampleOf(source);
  Listing listing = sample.listing;
  listing.options.contextSize = contextSize;
  listing.options.showLineBreaks = showLineBreaks;
  SilentProgress nobody;
  std::size_t length = 0;
  const auto take = [&length](std::string_view piece) {
    length += piece.size();
    return true;
  };
  for (auto _ : state) Compose(listing, take, nobody);
  if (length == 0) state.SkipWithError("not listed");
  CountBytes(state, sample);
}

// Composes, shows and writes the listing, as after a change of options.
void ListAgain(benchmark::State& state, Source source) {
  const Sample& sample = SampleOf(source);
  SilentConversation ui;
  Listing listing = sample.listing;
  ListingTarget target;
  target.path = sample.concordancePath;
  for (auto _ : state) {
    state.PauseTiming();
    std::filesystem::remove(sample.concordancePath);
    state.ResumeTiming();
    if (!ListWords(listing, target, ui).written) state.SkipWithError("not written");
  }
  CountBytes(state, sample);
}

BENCHMARK_CAPTURE(Read, text, Source::text);
BENCHMARK_CAPTURE(Read, repeatedSentence, Source::repeatedSentence);

BENCHMARK_CAPTURE(Scan, text, Source::text);
BENCHMARK_CAPTURE(Scan, wideVocabulary, Source::wideVocabulary);
BENCHMARK_CAPTURE(Scan, repeatedSentence, Source::repeatedSentence);

BENCHMARK_CAPTURE(Sort, text, Source::text);
BENCHMARK_CAPTURE(Sort, wideVocabulary, Source::wideVocabulary);

BENCHMARK_CAPTURE(Chain, text, Source::text);
BENCHMARK_CAPTURE(Chain, wideVocabulary, Source::wideVocabulary);

BENCHMARK_CAPTURE(ComposeListing, text_context5, Source::text, 5, false);
BENCHMARK_CAPTURE(ComposeListing, text_context0, Source::text, 0, false);
BENCHMARK_CAPTURE(ComposeListing, text_context5_lineBreaks, Source::text, 5, true);
BENCHMARK_CAPTURE(ComposeListing, wideVocabulary_context5, Source::wideVocabulary, 5, false);
BENCHMARK_CAPTURE(ComposeListing, repeatedSentence_context5, Source::repeatedSentence, 5, false);

BENCHMARK_CAPTURE(ListAgain, text, Source::text);
BENCHMARK_CAPTURE(ListAgain, repeatedSentence, Source::repeatedSentence);

}  // namespace
}  // namespace quorvel
