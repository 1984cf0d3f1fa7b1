// Benchmarks of documents other than plain text: the XML of a document body and web pages of 2 and
// 20 MB. Reading a body is compared with a plain copy of the same bytes.
#include <benchmark/benchmark.h>

#include <string>
#include <string_view>

#include "input/docx_text.h"
#include "input/html_text.h"
#include "samples.h"

namespace quorvel {
namespace {

// Appends `part` until the text has as many bytes as the argument of the benchmark.
std::string Filled(const benchmark::State& state, std::string text, std::string_view part) {
  while (std::ssize(text) < state.range(0)) text += part;
  return text;
}

std::string Body(const benchmark::State& state) {
  return Filled(state, "<w:document><w:body>",
                "<w:p><w:pPr><w:rPr/></w:pPr><w:r><w:rPr><w:lang w:val=\"fr-FR\"/></w:rPr>"
                "<w:t xml:space=\"preserve\">The lamp of the caf\xC3\xA9 is lit, and </w:t></w:r>"
                "<w:r><w:t>whoever is still on the water</w:t></w:r></w:p>");
}

std::string Page(const benchmark::State& state, std::string_view part) {
  return Filled(state, "<!DOCTYPE html><html><head></head><body>", part);
}

void Copy(benchmark::State& state, const std::string& document) {
  for (auto _ : state) {
    std::string copy = document;
    benchmark::DoNotOptimize(copy.data());
  }
  state.SetBytesProcessed(state.iterations() * std::ssize(document));
}

void CopyBody(benchmark::State& state) { Copy(state, Body(state)); }

void ReadBody(benchmark::State& state) {
  const std::string body = Body(state);
  SilentProgress nobody;
  for (auto _ : state) {
    DocumentRuns runs(body);
    benchmark::DoNotOptimize(runs.Read(nobody));
    benchmark::DoNotOptimize(runs.Text().data());
  }
  state.SetBytesProcessed(state.iterations() * std::ssize(body));
}

// The time includes the copy at the beginning of each iteration.
void PreparePage(benchmark::State& state, std::string_view part) {
  const std::string page = Page(state, part);
  SilentProgress nobody;
  for (auto _ : state) {
    std::string text = page;
    benchmark::DoNotOptimize(PrepareHtmlText(text, true, true, nobody));
    benchmark::DoNotOptimize(text.data());
  }
  state.SetBytesProcessed(state.iterations() * std::ssize(page));
}

void Sizes(benchmark::internal::Benchmark* benchmark) {
  benchmark->Arg(2000000)->Arg(20000000)->Unit(benchmark::kMillisecond);
}

BENCHMARK(CopyBody)->Apply(Sizes);
BENCHMARK(ReadBody)->Apply(Sizes);
// Four tags in 47 bytes, which are 1,700,000 tags in 20 MB.
BENCHMARK_CAPTURE(PreparePage, prose, "<p>the lamp is <b>lit</b> and <i>whoever</i></p>")
    ->Apply(Sizes);
BENCHMARK_CAPTURE(PreparePage, entities, "<p>&eacute;t&eacute; &nope; &amp; </p>")->Apply(Sizes);
BENCHMARK_CAPTURE(PreparePage, unclosedTags, "a line < and ")->Apply(Sizes);
BENCHMARK_CAPTURE(PreparePage, nestedLists, "<ul><li>one")->Apply(Sizes);

}  // namespace
}  // namespace quorvel
