// Benchmarks of a whole run, from the settings to the written file, with the share of each phase.
//
// The session announces its phases to the conversation. Measuring the time between them gives the
// shares of a real run without slowing it down.
#include <benchmark/benchmark.h>

#include <array>
#include <chrono>
#include <cstddef>
#include <filesystem>
#include <string_view>

#include "samples.h"
#include "util/utf8.h"

namespace quorvel {
namespace {

enum Phase : std::size_t { READ, DECODE, SCAN, SORT, ORDER, COMPOSE, WRITE, PHASE_COUNT };

constexpr std::array<const char*, PHASE_COUNT> PHASE_NAMES = {"read",  "decode",  "scan", "sort",
                                                              "order", "compose", "write"};

const SessionOptions DETECTED = {.encodingChoice = EncodingChoice::adoptDetected};

class PhaseClock : public SilentConversation {
 public:
  using Clock = std::chrono::steady_clock;

  void Start() { since_ = Clock::now(); }
  void Stop() { Enter(READ); }  // the first phase of the next run

  void BeginPhase(std::string_view name) override {
    if (name == "Compacting spaces") Enter(DECODE);
    if (name == "Sorting") Enter(SORT);
    if (name == "Applying filters") Enter(ORDER);
    if (name == "Creating concordance") Enter(COMPOSE);
  }

  // The scan begins by showing an empty progress bar.
  void ShowBar(std::string_view /*caption*/) override {
    if (phase_ == DECODE) Enter(SCAN);
  }

  // This label is set when the listing is composed.
  void SetLabel(Label label, std::string_view /*text*/) override {
    if (label == Label::keywordsFound && phase_ == COMPOSE) Enter(WRITE);
  }

  [[nodiscard]] double Percent(std::size_t phase) const {
    Clock::duration total{};
    for (const Clock::duration spent : spent_) total += spent;
    return 100.0 * static_cast<double>(spent_[phase].count()) / static_cast<double>(total.count());
  }

 private:
  void Enter(Phase phase) {
    const Clock::time_point now = Clock::now();
    spent_[phase_] += now - since_;
    since_ = now;
    phase_ = phase;
  }

  std::array<Clock::duration, PHASE_COUNT> spent_{};
  Clock::time_point since_;
  Phase phase_ = READ;
};

void Run(benchmark::State& state, Source source) {
  const Sample& sample = SampleOf(source);
  PhaseClock ui;
  for (auto _ : state) {
    state.PauseTiming();
    std::filesystem::remove(sample.concordancePath);  // not measured
    state.ResumeTiming();
    Session session(ui, DETECTED);
    session.Settings() = sample.settings;
    session.Settings().outputFile = sample.concordancePath;
    ui.Start();
    if (session.RunConcordance() != RunOutcome::done) state.SkipWithError("not done");
    ui.Stop();
  }
  state.SetBytesProcessed(state.iterations() * sample.fileLength);
  for (std::size_t phase = 0; phase < PHASE_COUNT; ++phase) {
    if (ui.Percent(phase) == 0) state.SkipWithError("a phase went by unnoticed");
    state.counters[PHASE_NAMES[phase]] = ui.Percent(phase);
  }
}

// A search for a rare word as in the window, which records all words for later searches.
void Search(benchmark::State& state, Source source, bool fromIndex) {
  const Sample& sample = SampleOf(source);
  SilentConversation ui;
  Session made(ui, DETECTED);
  made.Settings() = sample.settings;
  made.Settings().outputFile = sample.concordancePath;
  made.Settings().createIndexFile = true;
  if (made.RunConcordance() != RunOutcome::done) state.SkipWithError("no index");
  const std::string rareWord =
      EncodeUtf8(made.CurrentListing()->words->words.table->entries.back().word);
  for (auto _ : state) {
    Session session(ui, DETECTED);
    session.Settings() = sample.settings;
    session.Settings().mode = Mode::search;
    session.Settings().extraKeywords = rareWord;
    if (fromIndex) session.UseIndexFile();
    if (session.RunConcordance() != RunOutcome::done) state.SkipWithError("not done");
  }
  state.SetBytesProcessed(state.iterations() * sample.fileLength);
}

BENCHMARK_CAPTURE(Search, scanned, Source::text, false);
BENCHMARK_CAPTURE(Search, fromIndex, Source::text, true);

BENCHMARK_CAPTURE(Run, text, Source::text);
BENCHMARK_CAPTURE(Run, wideVocabulary, Source::wideVocabulary);
BENCHMARK_CAPTURE(Run, repeatedSentence, Source::repeatedSentence);

}  // namespace
}  // namespace quorvel
