// Each phase of a run by itself. Bytes per second are always bytes of the input file, so that
// phases can be compared.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <optional>
#include <string>

#include "engine/tokenizer.h"
#include "input/compact_spaces.h"
#include "input/document_text.h"
#include "output/concordance_file.h"
#include "output/listing.h"
#include "samples.h"
#include "util/ansi.h"

namespace quorvel {
namespace {

void CountBytes(benchmark::State& state, const Sample& sample) {
  state.SetBytesProcessed(state.iterations() * sample.fileLength);
}

// From the file to the text that is scanned.
void Read(benchmark::State& state, Source source) {
  const Sample& sample = SampleOf(source);
  SilentInterface ui;
  for (auto _ : state) {
    bool isUtf8 = false;
    bool macNoticeShown = false;
    std::optional<std::string> text =
        ObtainDocumentText(sample.path, EncodingChoice::adoptDetected, isUtf8, macNoticeShown, ui);
    CompactSpaces(*text);
    BlankDoubleHyphens(*text);
    const std::u16string documentText = DecodeAnsi(*text);
    benchmark::DoNotOptimize(documentText.data());
  }
  CountBytes(state, sample);
}

void Scan(benchmark::State& state, Source source) {
  const Sample& sample = SampleOf(source);
  SilentInterface ui;
  for (auto _ : state) {
    WordTable table;
    GetWords(sample.documentText, table, ui);
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
  WordTable table = sample.ordered.table;
  for (auto _ : state) {
    BuildFrequencyChain(table);
    benchmark::DoNotOptimize(table.frequencyHead);
  }
  CountBytes(state, sample);
}

void Compose(benchmark::State& state, Source source, int contextSize, bool showLineBreaks) {
  const Sample& sample = SampleOf(source);
  RunState run = sample.ordered;
  run.settings.contextSize = contextSize;
  run.settings.showLineBreaks = showLineBreaks;
  SilentInterface ui;
  for (auto _ : state) {
    if (ListWords(run, ui) != ListingOutcome::listed) state.SkipWithError("not listed");
    benchmark::DoNotOptimize(run.outputText.data());
  }
  CountBytes(state, sample);
}

void Write(benchmark::State& state, Source source) {
  const Sample& sample = SampleOf(source);
  RunState run = sample.ordered;
  SilentInterface ui;
  if (ListWords(run, ui) != ListingOutcome::listed) state.SkipWithError("not listed");
  run.settings.outputFile = sample.concordancePath;
  for (auto _ : state) {
    state.PauseTiming();
    std::filesystem::remove(sample.concordancePath);
    state.ResumeTiming();
    if (WriteConcordanceFile(run.settings, "", run.outputText, ui).outcome !=
        FileOutcome::written) {
      state.SkipWithError("not written");
    }
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

BENCHMARK_CAPTURE(Compose, text_context5, Source::text, 5, false);
BENCHMARK_CAPTURE(Compose, text_context0, Source::text, 0, false);
BENCHMARK_CAPTURE(Compose, text_context5_lineBreaks, Source::text, 5, true);
BENCHMARK_CAPTURE(Compose, wideVocabulary_context5, Source::wideVocabulary, 5, false);
BENCHMARK_CAPTURE(Compose, repeatedSentence_context5, Source::repeatedSentence, 5, false);

BENCHMARK_CAPTURE(Write, text, Source::text);
BENCHMARK_CAPTURE(Write, repeatedSentence, Source::repeatedSentence);

}  // namespace
}  // namespace quorvel
