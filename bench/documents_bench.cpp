// Documents that are not plain text: 20 MB of a body's XML and of a web page, each
// beside a plain copy of the same bytes.
#include <benchmark/benchmark.h>

#include <string>
#include <string_view>

#include "input/docx_text.h"
#include "input/html_text.h"
#include "samples.h"

namespace quorvel {
namespace {

constexpr std::size_t DOCUMENT_LENGTH = 20000000;

// The part again and again behind the beginning, up to DOCUMENT_LENGTH bytes.
std::string Filled(std::string text, std::string_view part) {
  while (text.size() < DOCUMENT_LENGTH) text += part;
  return text;
}

std::string Body() {
  return Filled("<w:document><w:body>",
                "<w:p><w:pPr><w:rPr/></w:pPr><w:r><w:rPr><w:lang w:val=\"fr-FR\"/></w:rPr>"
                "<w:t xml:space=\"preserve\">The lamp of the caf\xC3\xA9 is lit, and </w:t></w:r>"
                "<w:r><w:t>whoever is still on the water</w:t></w:r></w:p>");
}

std::string Page(std::string_view part) {
  return Filled("<!DOCTYPE html><html><head></head><body>", part);
}

void Copy(benchmark::State& state, const std::string& document) {
  for (auto _ : state) {
    std::string copy = document;
    benchmark::DoNotOptimize(copy.data());
  }
  state.SetBytesProcessed(state.iterations() * std::ssize(document));
}

void CopyBody(benchmark::State& state) { Copy(state, Body()); }

void ReadBody(benchmark::State& state) {
  const std::string body = Body();
  SilentInterface ui;
  for (auto _ : state) {
    const DocumentRuns runs = ReadDocumentRuns(body, ui);
    benchmark::DoNotOptimize(runs.text.data());
  }
  state.SetBytesProcessed(state.iterations() * std::ssize(body));
}

// The copy that each round begins with is counted too.
void PreparePage(benchmark::State& state, std::string_view part) {
  const std::string page = Page(part);
  SilentInterface ui;
  for (auto _ : state) {
    std::string text = page;
    benchmark::DoNotOptimize(PrepareHtmlText(text, true, true, ui));
    benchmark::DoNotOptimize(text.data());
  }
  state.SetBytesProcessed(state.iterations() * std::ssize(page));
}

BENCHMARK(CopyBody)->Unit(benchmark::kMillisecond);
BENCHMARK(ReadBody)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(PreparePage, prose, "<p>the lamp is <b>lit</b> and <i>whoever</i></p>")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(PreparePage, entities, "<p>&eacute;t&eacute; &nope; &amp; </p>")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(PreparePage, unclosedTags, "a line < and ")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(PreparePage, nestedLists, "<ul><li>one")->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace quorvel
