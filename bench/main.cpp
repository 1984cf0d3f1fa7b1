// quorvel_bench: benchmarks, generated texts, and the lower bound for a concordance.
//
//   quorvel_bench [OPTION...]                   options of Google Benchmark
//   quorvel_bench text LENGTH VOCABULARY SEED   writes a generated text to standard output
//   quorvel_bench hostile NAME                  writes a text of hostile_texts.h
//   quorvel_bench floor INPUT OUTPUT            see floor.h

#include <benchmark/benchmark.h>

#include <cstdio>
#include <exception>
#include <string>
#include <vector>

#include "floor.h"
#include "generated_text.h"
#include "hostile_texts.h"

namespace {

int WriteText(const std::string& text) {
  return !text.empty() && std::fwrite(text.data(), 1, text.size(), stdout) == text.size() ? 0 : 1;
}

}  // namespace

int main(int argumentCount, char** arguments) try {
  const std::vector<std::string> words(arguments, arguments + argumentCount);
  if (words.size() == 5 && words[1] == "text") {
    return WriteText(quorvel::GeneratedText({std::stoul(words[2]), std::stoul(words[3]),
                                             static_cast<std::uint32_t>(std::stoul(words[4]))}));
  }
  if (words.size() == 3 && words[1] == "hostile") {
    return WriteText(quorvel::HostileText(words[2]));
  }
  if (words.size() == 4 && words[1] == "floor") {
    return quorvel::WriteFloor(words[2], words[3]) ? 0 : 1;
  }
  benchmark::Initialize(&argumentCount, arguments);
  if (benchmark::ReportUnrecognizedArguments(argumentCount, arguments)) return 1;
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
} catch (const std::exception& error) {
  std::fprintf(stderr, "quorvel_bench: %s\n", error.what());  // NOLINT(*-vararg)
  return 1;
}
