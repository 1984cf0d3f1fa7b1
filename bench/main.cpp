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

#include "floor.h"
#include "generated_text.h"
#include "hostile_texts.h"

namespace {

int WriteText(const std::string& text) {
  return !text.empty() && std::fwrite(text.data(), 1, text.size(), stdout) == text.size() ? 0 : 1;
}

int WriteGeneratedText(char** arguments) {
  return WriteText(quorvel::GeneratedText({std::stoul(arguments[0]), std::stoul(arguments[1]),
                                           static_cast<std::uint32_t>(std::stoul(arguments[2]))}));
}

}  // namespace

int main(int argumentCount, char** arguments) try {
  constexpr int TEXT_ARGUMENTS = 5;
  if (argumentCount == TEXT_ARGUMENTS && std::string(arguments[1]) == "text") {
    return WriteGeneratedText(arguments + 2);
  }
  constexpr int HOSTILE_ARGUMENTS = 3;
  if (argumentCount == HOSTILE_ARGUMENTS && std::string(arguments[1]) == "hostile") {
    return WriteText(quorvel::HostileText(arguments[2]));
  }
  constexpr int FLOOR_ARGUMENTS = 4;
  if (argumentCount == FLOOR_ARGUMENTS && std::string(arguments[1]) == "floor") {
    return quorvel::WriteFloor(arguments[2], arguments[3]) ? 0 : 1;
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
