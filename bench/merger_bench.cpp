// Merging of contexts that repeat.
#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "generated_text.h"
#include "output/context_merger.h"
#include "output/entry_composer.h"

namespace quorvel {
namespace {

constexpr std::size_t CONTEXT_LENGTH = 80;

// Returns `count` different contexts.
std::vector<std::string> Contexts(std::size_t count) {
  const std::string text = GeneratedText({count * CONTEXT_LENGTH, 5000, 1});
  std::vector<std::string> contexts;
  for (std::size_t i = 0; i < count; ++i) {
    contexts.push_back(text.substr(i * CONTEXT_LENGTH, CONTEXT_LENGTH));
  }
  return contexts;
}

// Merges the maximum number of occurrences, with only `state.range(0)` different contexts.
// `markersInText` selects the slower algorithm, for documents that contain texts like repeat
// markers.
void Merge(benchmark::State& state, bool markersInText) {
  const std::vector<std::string> contexts = Contexts(static_cast<std::size_t>(state.range(0)));
  ContextMerger<char> merger(true, markersInText, RandomHashSeed());
  for (auto _ : state) {
    merger.Start(MOST_OCCURRENCES);
    for (std::size_t k = 0; k < MOST_OCCURRENCES; ++k) merger.Add(contexts[k % contexts.size()]);
    benchmark::DoNotOptimize(merger.Contexts().data());
  }
  state.SetBytesProcessed(state.iterations() * MOST_OCCURRENCES *
                          static_cast<std::int64_t>(CONTEXT_LENGTH));
}

BENCHMARK_CAPTURE(Merge, plain, false)->Arg(1)->Arg(100)->Arg(MOST_OCCURRENCES);
BENCHMARK_CAPTURE(Merge, markersInText, true)->Arg(1)->Arg(100)->Arg(MOST_OCCURRENCES);

}  // namespace
}  // namespace quorvel
